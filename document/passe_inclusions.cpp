#include "core/cle.h"
#include "document/passes.h"

#include <QHash>

#include <memory>
#include <unordered_map>

namespace velm::passes {
namespace {

constexpr QStringView ouvranteinclusion = u"{I=";
constexpr qsizetype longueurcle = 8;

/// Bodies that were fetched and read in this pass.
class Corps {
public:
    Corps(SourceDeContenu& source, RichText& hote) : source_(source), hote_(hote) {}

    struct Un {
        bool vide = true;    ///< nothing to put in: the token is deleted
        bool refuse = false; ///< no rich text: putting it in fails and changes nothing
        Plat texte;
    };

    const Un& cherche(const Cle& cle) {
        auto& place = lus_[cle];
        if (!place)
            place = lit(cle);
        return *place;
    }

private:
    std::unique_ptr<Un> lit(const Cle& cle) {
        auto un = std::make_unique<Un>();
        const std::optional<QByteArray> contenu = source_.contenu(cle);
        un->vide = !contenu || contenu->isEmpty();
        if (un->vide)
            return un;
        RichText lu;
        un->refuse = !readRtf(*contenu, lu, RtfLoad::Selection);
        un->texte = Plat(lu, hote_);
        return un;
    }

    SourceDeContenu& source_;
    RichText& hote_;
    std::unordered_map<Cle, std::unique_ptr<Un>> lus_;
};

/// What is still to be read is a stack of stretches of the document and of those it includes; putting one in is to lay
/// a stretch on top.
class Inclusions {
public:
    Inclusions(const Plat& texte, RichText& hote, SourceDeContenu& source, const BornesPasses& bornes)
        : hote_(hote), corps_(source, hote), compteur_(bornes) {
        vers_.reserve(texte.longueur());
        vers_.prendfin(texte);
        empile(texte);
    }

    Plat passe() {
        qsizetype dernier = -1;
        while (true) {
            const std::optional<qsizetype> avant = avance();
            if (!avant)
                break;
            const qsizetype p = vers_.longueur() - *avant;
            if (p == dernier)
                break;
            dernier = p;
            if (!remplace(*avant))
                break;
        }
        while (!pile_.empty())
            prend(pile_.back().fin - pile_.back().debut);
        return std::move(vers_);
    }

private:
    struct Etendue {
        const Plat* texte;
        qsizetype debut;
        qsizetype fin;
    };

    void empile(const Plat& texte) {
        if (texte.longueur() == 0)
            return;
        pile_.push_back({&texte, 0, texte.longueur()});
        reste_ += texte.longueur();
    }

    char16_t suivant(qsizetype rang) const {
        for (std::size_t i = pile_.size(); i-- > 0;) {
            const Etendue& e = pile_[i];
            if (rang < e.fin - e.debut)
                return e.texte->texte()[e.debut + rang].unicode();
            rang -= e.fin - e.debut;
        }
        return u'\0';
    }

    qsizetype jonction() const {
        const QStringView ecrit = vers_.texte();
        if (ecrit.endsWith(u"{I") && suivant(0) == u'=')
            return 2;
        return ecrit.endsWith(u'{') && suivant(0) == u'I' && suivant(1) == u'=' ? 1 : 0;
    }

    /// Writes up to the next opening and tells how much of it stands at the end of what is written; nothing when there
    /// is none.
    std::optional<qsizetype> avance() {
        qsizetype avant = jonction();
        while (avant == 0 && !pile_.empty()) {
            const Etendue& e = pile_.back();
            const qsizetype place = e.texte->texte().indexOf(ouvranteinclusion, e.debut);
            if (place >= 0) {
                prend(place - e.debut);
                return 0;
            }
            prend(e.fin - e.debut);
            avant = jonction();
        }
        return avant > 0 ? std::optional(avant) : std::nullopt;
    }

    /// Distance of the next closing brace; -1 for none.
    qsizetype accolade() const {
        qsizetype distance = 0;
        for (std::size_t i = pile_.size(); i-- > 0;) {
            const Etendue& e = pile_[i];
            const qsizetype place = e.texte->texte().sliced(e.debut, e.fin - e.debut).indexOf(u'}');
            if (place >= 0)
                return distance + place;
            distance += e.fin - e.debut;
        }
        return -1;
    }

    /// False when the pass must stop: nothing has changed then.
    bool remplace(qsizetype avant) {
        const FormatId premier = avant > 0 ? vers_.caractere(vers_.longueur() - avant) : premiercaractere();
        const qsizetype q = accolade();
        const Corps::Un* un = nullptr;
        if (q < 0) {
            efface(longueurefface - avant);
        } else {
            const qsizetype debut = ouvranteinclusion.size() - avant;
            const QString cle = q - debut == longueurcle ? lit(debut) : QString();
            un = estcle(cle) ? &corps_.cherche(decoupecle(cle)) : nullptr;
            if (un != nullptr && !un->vide &&
                (un->refuse || !compteur_.permet(vers_.longueur() + reste_, q + 1 + avant, un->texte.longueur())))
                return false;
            laisse(q + 1);
        }
        vers_.raccourcit(avant);
        // A change that reaches the text's end leaves its format there.
        if (pile_.empty())
            vers_.fixederniercaractere(sansobjet(hote_, premier));
        if (un != nullptr && !un->vide)
            empile(un->texte);
        return true;
    }

    FormatId premiercaractere() const { return pile_.back().texte->caractere(pile_.back().debut); }

    QString lit(qsizetype debut) const {
        QString cle;
        for (qsizetype i = 0; i < longueurcle; ++i)
            cle += QChar(suivant(debut + i));
        return cle;
    }

    /// Without its end an inclusion takes what is behind with it; a line end goes whole.
    void efface(qsizetype nombre) {
        nombre = std::min(nombre, reste_);
        if (nombre > 0 && nombre < reste_ && suivant(nombre - 1) == u'\r')
            ++nombre;
        laisse(nombre);
    }

    void prend(qsizetype nombre) {
        const Etendue& e = pile_.back();
        vers_.ajoute(*e.texte, e.debut, e.debut + nombre);
        laisse(nombre);
    }

    void laisse(qsizetype nombre) {
        reste_ -= nombre;
        while (nombre > 0) {
            Etendue& e = pile_.back();
            const qsizetype ici = std::min(nombre, e.fin - e.debut);
            e.debut += ici;
            nombre -= ici;
            if (e.debut == e.fin)
                pile_.pop_back();
        }
    }

    RichText& hote_;
    Corps corps_;
    Compteur compteur_;
    Plat vers_;
    std::vector<Etendue> pile_;
    qsizetype reste_ = 0;
};

} // namespace

std::optional<Plat> inclusions(const Plat& texte, RichText& hote, SourceDeContenu& source, const BornesPasses& bornes) {
    if (!texte.texte().contains(ouvranteinclusion))
        return std::nullopt;
    return Inclusions(texte, hote, source, bornes).passe();
}

std::optional<Plat> sautsdepage(const Plat& texte, RichText& hote) {
    constexpr QStringView jeton = u"{FF}";
    qsizetype p = texte.texte().indexOf(jeton);
    if (p < 0)
        return std::nullopt;
    Plat vers;
    vers.reserve(texte.longueur() + texte.longueur() / 8);
    vers.prendfin(texte);
    qsizetype lu = 0;
    // What is put in begins and ends with a line end: no new token can arise at its seams.
    for (; p >= 0; p = texte.texte().indexOf(jeton, lu)) {
        vers.ajoute(texte, lu, p);
        lu = p + jeton.size();
        const FormatId caractere = sansobjet(hote, texte.caractere(p));
        vers.ajoute(u"\r\n\f\r\n", caractere, texte.paragraphe(texte.ligne(lu)));
        if (lu == texte.longueur())
            vers.fixederniercaractere(caractere);
    }
    vers.ajoute(texte, lu, texte.longueur());
    return vers;
}

} // namespace velm::passes
