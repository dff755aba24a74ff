#include "core/cle.h"
#include "document/passes.h"

#include <QHash>

namespace velm::passes {
namespace {

using namespace Qt::Literals::StringLiterals;

/// Bodies that were fetched and read in this pass.
class Corps {
public:
    explicit Corps(SourceDeContenu& source) : source_(source) {}

    struct Un {
        bool vide = true;   ///< nothing to put in: the token is deleted
        bool refuse = true; ///< no rich text: putting it in fails and changes nothing
        RichText texte;
    };

    const Un& cherche(const QString& cle) {
        auto& place = lus_[cle];
        if (!place)
            place = lit(cle);
        return *place;
    }

private:
    std::shared_ptr<Un> lit(const QString& cle) {
        auto un = std::make_shared<Un>();
        const Cle parts = decoupecle(cle);
        const std::optional<QByteArray> contenu = source_.contenu(parts.code, parts.numero);
        un->vide = !contenu || contenu->isEmpty();
        un->refuse = !un->vide && !readRtf(*contenu, un->texte, RtfLoad::Selection);
        return un;
    }

    SourceDeContenu& source_;
    QHash<QString, std::shared_ptr<Un>> lus_;
};

} // namespace

void inclusions(RichText& texte, SourceDeContenu& source, const BornesPasses& bornes) {
    constexpr QStringView ouvrante = u"{I=";
    Corps corps(source);
    Compteur compteur(bornes);
    qsizetype dernier = -1;
    qsizetype p = texte.indexOf(ouvrante);
    while (p >= 0 && p != dernier) {
        dernier = p;
        const qsizetype q = texte.indexOf(u'}', p + 1);
        if (q < 0) {
            texte.remove(p, longueurefface);
        } else {
            const qsizetype debut = p + ouvrante.size();
            const QString cle = q - debut == 8 ? texte.text(debut, 8) : QString();
            const Corps::Un* un = estcle(cle) ? &corps.cherche(cle) : nullptr;
            const qsizetype retire = q + 1 - p;
            if (un == nullptr || un->vide) {
                texte.remove(p, retire);
            } else if (!un->refuse) {
                if (!compteur.permet(texte.length(), retire, un->texte.length()))
                    return;
                texte.replace(p, retire, un->texte);
            }
        }
        // A new opening can begin at most two characters before what was just put in.
        p = texte.indexOf(ouvrante, std::max<qsizetype>(p - 2, 0));
    }
}

void sautsdepage(RichText& texte) {
    constexpr QStringView jeton = u"{FF}";
    constexpr QStringView saut = u"\r\n\f\r\n";
    // What is put in begins with a line end: no new token can arise, and the same place never comes twice.
    for (qsizetype p = texte.indexOf(jeton); p >= 0; p = texte.indexOf(jeton, p + saut.size()))
        texte.replace(p, jeton.size(), saut);
}

} // namespace velm::passes
