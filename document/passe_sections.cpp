#include "document/miseenforme.h"
#include "document/passes.h"

#include <deque>

namespace velm::passes {
namespace {

constexpr QStringView ouvrantesection = u"{S=";
constexpr QStringView fermante = u"{-S}";

/// The text lies in three parts: what is done with; what was read ahead, which holds no token but perhaps an opening at
/// its very end; and what lies untouched behind. All are stretches of the original, and only deleted places are left
/// out, so that a place keeps its number.
class Sections {
public:
    Sections(const Plat& texte, RichText& hote, bool abc, const ContextePasses& contexte)
        : texte_(texte), t_(texte.texte()), abc_(abc), contexte_(contexte), forme_(texte, hote, contexte.styles),
          tabulations_(t_.count(u'\t')) {}

    Plat passe() {
        while (vaouverture()) {
            const qsizetype p = longueurfaite_;
            if (p == dernier_ && repete_)
                break;
            repete_ = p == dernier_;
            dernier_ = p;
            // Without a brace behind it nothing changes, and the third time at the same place ends the pass.
            if (!prendjeton())
                break;
            const bool fermee = lisection();
            montre(fermee);
            precedent_ = nom_;
        }
        fait(nombrelu_);
        range(faites_, {u_, t_.size()});
        return forme_.rend(faites_);
    }

    std::optional<int> indentpuce() const { return forme_.indentpuce(); }

private:
    template <typename Liste>
    static void range(Liste& liste, Etendue e) {
        if (e.longueur() <= 0)
            return;
        if (!liste.empty() && liste.back().fin == e.debut)
            liste.back().fin = e.fin;
        else
            liste.push_back(e);
    }

    // ---- the part read ahead

    void lit(qsizetype fin) {
        range(lues_, {u_, fin});
        nombrelu_ += fin - u_;
        u_ = fin;
    }

    /// Takes stretches off the front, or leaves them out altogether.
    template <typename Rend>
    void prend(qsizetype nombre, Rend rend) {
        nombrelu_ -= nombre;
        while (nombre > 0) {
            Etendue& e = lues_.front();
            const qsizetype ici = std::min(nombre, e.longueur());
            rend(Etendue{e.debut, e.debut + ici});
            e.debut += ici;
            nombre -= ici;
            if (e.longueur() == 0)
                lues_.pop_front();
        }
    }

    void fait(qsizetype nombre) {
        longueurfaite_ += nombre;
        prend(nombre, [this](Etendue e) { range(faites_, e); });
    }

    void oublie(qsizetype nombre) {
        prend(nombre, [this](Etendue e) {
            if (tabulations_ > 0)
                tabulations_ -= t_.sliced(e.debut, e.longueur()).count(u'\t');
        });
    }

    void oubliefin(qsizetype nombre) {
        nombrelu_ -= nombre;
        while (nombre > 0) {
            Etendue& e = lues_.back();
            const qsizetype ici = std::min(nombre, e.longueur());
            e.fin -= ici;
            nombre -= ici;
            if (e.longueur() == 0)
                lues_.pop_back();
        }
    }

    /// Takes what is done with back to the front.
    void reprend(qsizetype nombre) {
        longueurfaite_ -= nombre;
        nombrelu_ += nombre;
        while (nombre > 0) {
            Etendue& e = faites_.back();
            const qsizetype ici = std::min(nombre, e.longueur());
            e.fin -= ici;
            nombre -= ici;
            lues_.push_front({e.fin, e.fin + ici});
            if (e.longueur() == 0)
                faites_.pop_back();
        }
    }

    /// Place of a character from the front on, or of one in the text behind.
    qsizetype place(qsizetype rang) const {
        for (const Etendue& e : lues_) {
            if (rang < e.longueur())
                return e.debut + rang;
            rang -= e.longueur();
        }
        return u_ + rang;
    }
    char16_t suivant(qsizetype rang) const {
        const qsizetype p = place(rang);
        return p < t_.size() ? t_[p].unicode() : u'\0';
    }

    /// Place of the k-th character from the end of a part; -1 when it is shorter.
    template <typename Liste>
    static qsizetype placedefin(const Liste& liste, qsizetype k) {
        for (auto e = liste.rbegin(); e != liste.rend(); ++e) {
            if (k <= e->longueur())
                return e->fin - k;
            k -= e->longueur();
        }
        return -1;
    }

    // ---- tokens

    /// Takes an opening back that has arisen at the seam.
    bool jonction() {
        for (const qsizetype k : {qsizetype{2}, qsizetype{1}}) {
            const qsizetype debut = placedefin(faites_, k);
            if (debut < 0 || t_[debut] != u'{')
                continue;
            const char16_t deuxieme = k == 2 ? t_[placedefin(faites_, 1)].unicode() : suivant(0);
            const char16_t troisieme = k == 2 ? suivant(0) : suivant(1);
            if (deuxieme == u'S' && troisieme == u'=') {
                reprend(k);
                return true;
            }
        }
        return false;
    }

    /// Brings the seam before the first opening of the text; false when there is none.
    bool vaouverture() {
        if (jonction())
            return true;
        if (ouverte_) {
            fait(nombrelu_ - ouvrantesection.size());
            return true;
        }
        fait(nombrelu_);
        if (jonction())
            return true;
        const qsizetype p = t_.indexOf(ouvrantesection, u_);
        if (p < 0)
            return false;
        range(faites_, {u_, p});
        longueurfaite_ += p - u_;
        u_ = p;
        return true;
    }

    /// Number of characters read ahead up to the first closing brace, itself included; 0 when it lies behind.
    qsizetype accoladelue() const {
        qsizetype distance = 0;
        for (const Etendue& e : lues_) {
            const qsizetype p = t_.sliced(e.debut, e.longueur()).indexOf(u'}');
            if (p >= 0)
                return distance + p + 1;
            distance += e.longueur();
        }
        return 0;
    }

    /// Deletes the opening token at the seam and reads its style name; false when it has no end.
    bool prendjeton() {
        qsizetype nombre = accoladelue();
        const qsizetype debut = place(0);
        if (nombre == 0) {
            const qsizetype q = t_.indexOf(u'}', u_);
            if (q < 0)
                return false;
            ouverte_ = false;
            lit(q + 1);
            nombre = nombrelu_;
        }
        nom_.clear();
        for (const Etendue& e : lues_) {
            if (nom_.size() >= nombre)
                break;
            nom_ += t_.sliced(e.debut, std::min(e.longueur(), nombre - nom_.size()));
        }
        nom_ = nom_.sliced(ouvrantesection.size(), nombre - ouvrantesection.size() - 1);
        oublie(nombre);
        if (alafin())
            forme_.finprend(debut);
        return true;
    }

    bool alafin() const { return nombrelu_ == 0 && u_ == t_.size(); }

    /// Reads ahead to the end of the section at the seam and deletes its closing token. False when only the text's end
    /// closes it.
    bool lisection() {
        if (ouverte_)
            return true;
        // A token can stand partly at the end of what was read before.
        for (qsizetype k = std::min(nombrelu_, fermante.size() - 1); k > 0; --k) {
            if (t_[placedefin(lues_, k)] == u'{' && jetonaucoin(k))
                return true;
        }
        for (qsizetype p = t_.indexOf(u'{', u_); p >= 0; p = t_.indexOf(u'{', p + 1)) {
            const QStringView ici = t_.sliced(p);
            if (ici.startsWith(ouvrantesection)) {
                lit(p + ouvrantesection.size());
                ouverte_ = true;
                return true;
            }
            if (ici.startsWith(fermante)) {
                lit(p);
                ferme(0, p);
                return true;
            }
        }
        lit(t_.size());
        return false;
    }

    bool jetonaucoin(qsizetype k) {
        QString coin;
        for (qsizetype i = k; i > 0; --i)
            coin += t_[placedefin(lues_, i)];
        coin += t_.sliced(u_, std::min(fermante.size() - k, t_.size() - u_));
        if (k < ouvrantesection.size() && coin.startsWith(ouvrantesection)) {
            lit(u_ + ouvrantesection.size() - k);
            ouverte_ = true;
            return true;
        }
        if (coin != fermante)
            return false;
        ferme(k, placedefin(lues_, k));
        return true;
    }

    /// Deletes a closing token that stands with `lus` characters in what was read ahead.
    void ferme(qsizetype lus, qsizetype debut) {
        oubliefin(lus);
        u_ += fermante.size() - lus;
        if (u_ == t_.size())
            forme_.finprend(debut);
    }

    // ---- sections

    void montre(bool fermee) {
        if (!abc_) {
            applique(nom_);
        } else if (stylemasque(contexte_.styles, nom_, precedent_)) {
            const qsizetype nombre = longueursection();
            const qsizetype debut = place(0);
            oublie(nombre);
            if (nombre > 0 && alafin())
                forme_.finprend(debut);
            if (fermee)
                dernier_ = -1;
        } else if (nom_ == contexte_.styles.stylesuite) {
            applique(contexte_.styles.stylecondense);
        }
    }

    qsizetype longueursection() const { return nombrelu_ - (ouverte_ ? ouvrantesection.size() : 0); }

    void applique(const QString& nom) {
        if (!attente_)
            attente_.emplace(contexte_.sablier);
        const qsizetype nombre = longueursection();
        const qsizetype debut = place(0);
        const qsizetype fin = nombre > 0 ? placedefin(lues_, nombrelu_ - nombre + 1) + 1 : debut;
        // The paragraph that holds the section's end is reached as well, unless the section ends with a line.
        const auto derriere = static_cast<qsizetype>(texte_.ligne(u_));
        const bool finitligne = nombre > 0 && t_[fin - 1] == u'\n';
        const Etendue lignes{nombre > 0 ? static_cast<qsizetype>(texte_.ligne(debut)) : derriere,
                             finitligne ? static_cast<qsizetype>(texte_.ligne(fin - 1)) + 1 : derriere + 1};
        forme_.applique(nom, {debut, fin}, lignes, tabulations_ > 0);
    }

    const Plat& texte_;
    QStringView t_;
    bool abc_;
    const ContextePasses& contexte_;
    MiseEnForme forme_;
    qsizetype tabulations_; ///< tab characters that are left

    std::vector<Etendue> faites_;
    qsizetype longueurfaite_ = 0;
    std::deque<Etendue> lues_;
    qsizetype nombrelu_ = 0;
    bool ouverte_ = false; ///< what was read ahead ends with an opening
    qsizetype u_ = 0;      ///< start of what lies untouched

    qsizetype dernier_ = -1;
    bool repete_ = false;
    std::optional<Attente> attente_;
    QString nom_;
    QString precedent_;
};

} // namespace

std::optional<Plat> sections(const Plat& texte, RichText& hote, RichTextControl& controle, bool abc,
                             const ContextePasses& contexte) {
    if (!texte.texte().contains(ouvrantesection))
        return std::nullopt;
    Sections sections(texte, hote, abc, contexte);
    Plat rendu = sections.passe();
    if (const auto indentpuce = sections.indentpuce())
        controle.setBulletIndent(*indentpuce);
    return rendu;
}

} // namespace velm::passes
