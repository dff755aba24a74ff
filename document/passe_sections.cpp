#include "document/passes.h"

#include <array>
#include <memory>

namespace velm::passes {
namespace {

constexpr QStringView ouvrante = u"{S=";
constexpr QStringView fermante = u"{-S}";

class Sections {
public:
    Sections(RichTextControl& controle, bool abc, const ContextePasses& contexte)
        : controle_(controle), texte_(controle.richTextForEdit()), abc_(abc), contexte_(contexte),
          tabulations_(texte_.indexOf(u'\t') >= 0) {}

    void passe() {
        qsizetype p = texte_.indexOf(ouvrante);
        while (p >= 0) {
            if (p == dernier_ && repete_)
                return;
            repete_ = p == dernier_;
            dernier_ = p;
            const qsizetype q = texte_.indexOf(u'}', p + ouvrante.size());
            if (q >= 0)
                section(p, q);
            precedent_ = nom_;
            p = texte_.indexOf(ouvrante, std::max<qsizetype>(p - 2, 0));
        }
    }

private:
    void section(qsizetype p, qsizetype q) {
        nom_ = texte_.text(p + ouvrante.size(), q - p - ouvrante.size());
        retire(p, q + 1 - p);
        const qsizetype o = texte_.indexOf(ouvrante, p);
        const qsizetype e = texte_.indexOf(fermante, p);
        qsizetype fin = texte_.length();
        if (o >= 0 && (e < 0 || o < e)) {
            fin = o;
        } else if (e >= 0) {
            retire(e, fermante.size());
            fin = e;
        }
        montre(p, fin, o >= 0 || e >= 0);
    }

    void montre(qsizetype debut, qsizetype fin, bool fermee) {
        if (!abc_) {
            applique(debut, fin, nom_);
        } else if (stylemasque(contexte_.styles, nom_, precedent_)) {
            retire(debut, fin - debut);
            if (fermee)
                dernier_ = -1;
        } else if (nom_ == contexte_.styles.stylesuite) {
            applique(debut, fin, contexte_.styles.stylecondense);
        }
    }

    void retire(qsizetype debut, qsizetype longueur) {
        if (tabulations_ && texte_.text(debut, longueur).contains(u'\t')) {
            texte_.remove(debut, longueur);
            tabulations_ = texte_.indexOf(u'\t') >= 0;
        } else {
            texte_.remove(debut, longueur);
        }
    }

    void applique(qsizetype debut, qsizetype fin, const QString& nom) {
        const int indice = contexte_.styles.indice(nom);
        if (indice < 0)
            return;
        auto& prepare = changements_[static_cast<std::size_t>(indice)];
        if (!prepare)
            prepare = std::make_unique<ChangementStyle>(
                changementdestyle(contexte_.styles.styles[static_cast<std::size_t>(indice)]));
        texte_.changeCharacters(debut, fin - debut, prepare->caracteres);
        ParaChange paragraphes = prepare->paragraphes;
        if (tabulations_ && prepare->taquets) {
            paragraphes.mask |= ParaChange::Tabs;
            paragraphes.values.tabs = *prepare->taquets;
        }
        texte_.changeParagraphs(debut, fin - debut, paragraphes);
        if (prepare->indentpuce)
            controle_.setBulletIndent(*prepare->indentpuce);
    }

    RichTextControl& controle_;
    RichText& texte_;
    bool abc_;
    const ContextePasses& contexte_;
    bool tabulations_;
    qsizetype dernier_ = -1;
    bool repete_ = false;
    QString nom_;
    QString precedent_;
    std::array<std::unique_ptr<ChangementStyle>, TableStyles::nombre> changements_;
};

} // namespace

void sections(RichTextControl& controle, bool abc, const ContextePasses& contexte) {
    Sections(controle, abc, contexte).passe();
}

} // namespace velm::passes
