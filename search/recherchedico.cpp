#include "search/recherchedico.h"

#include "core/listes.h"
#include "core/parametres.h"
#include "platform/base/failure.h"
#include "platform/text/letters.h"
#include "platform/text/number.h"
#include "search/postings.h"
#include "search/typescherches.h"

#include <QRandomGenerator>

namespace velm {

namespace {

using namespace Qt::Literals::StringLiterals;

constexpr qsizetype lignecourte = 3;
constexpr qsizetype motcourt = 2;
constexpr qsizetype plusdentreessansquestion = 200;
constexpr qint64 limitedelaquestion = 200;
constexpr int pagedaide = 2;
constexpr int refusdumot = 7300;
constexpr int debutdelaquestion = 7302;
constexpr int titredelaquestion = 7303;
constexpr int findelaquestion = 7306;
constexpr QChar joker = u'*';

QString nombredentrees(const QByteArray& liste) {
    return numberText(liste.size() / octetsparentree);
}

QString sansjoker(const QString& mot) {
    return mot.endsWith(joker) ? mot.chopped(1) : mot;
}

bool refusable(const QString& mot) {
    return mot.size() < motcourt || val(mot) != 0 || (mot.back() >= u'0' && mot.back() <= u'9');
}

/// One search. It holds all that it works on, as another one may begin while it lets events through.
class Passe {
public:
    Passe(const Atelier& atelier, const std::function<void(const QString&)>& ligne, const DemandeDico& demande,
          const std::stop_token& arret)
        : atelier_(atelier), ligne_(ligne), demande_(demande), arret_(arret),
          filtre_(demande.fenetre || demande.lettres.size() < nombredecollections) {}

    /// The lists of the words, in slots from 1 on. False when the search was stopped.
    bool lit() {
        atelier_.corpus.dico().setIndex(u"primarykey"_s);
        for (const QString& mot : decoupemots(demande_.mots, separateursmots())) {
            if (refusable(mot))
                refuse(mot);
            else if (!mot.endsWith(joker))
                motexact(mot);
            else if (!motjoker(mot))
                return false;
        }
        return true;
    }

    /// Joins the lists and hands the words to mark on. Nothing happens when there is no word.
    QByteArray joint(const std::function<double()>& hasard) {
        const int nombre = nombremots();
        if (nombre == 0)
            return {};
        trierlistes(listes_, mots_, 1, nombre, hasard);
        QByteArray a = listes_[1];
        for (std::size_t i = 2; i < listes_.size(); ++i)
            a = demande_.tous || demande_.fenetre ? intersectionlistes(a, listes_[i]) : unionlistes(a, listes_[i]);
        atelier_.liste.mot1 = sansjoker(mots_[1]);
        atelier_.liste.mot2 = nombre > 1 ? sansjoker(mots_[2]) : QString();
        return a;
    }

    ResultatDico::Issue affiche(const QByteArray& entrees) {
        if (entrees.isEmpty())
            return ResultatDico::Issue::Terminee;
        qint64 limite = demande_.fenetre ? sanslimite : demande_.limite;
        if (entrees.size() > plusdentreessansquestion * octetsparentree && limite == sanslimite) {
            const Bouton reponse = demandelimite(entrees);
            if (reponse == Bouton::Annuler)
                return ResultatDico::Issue::Abandonnee;
            if (reponse == Bouton::Oui)
                limite = limitedelaquestion;
        }
        return ajoute(entrees, limite);
    }

    qint64 hits() const { return hits_; }

private:
    int nombremots() const { return static_cast<int>(mots_.size()) - 1; }

    void refuse(const QString& mot) const { ligne_(mot + u" : "_s + atelier_.texte(refusdumot)); }

    /// Tells a word with its number of documents, and gives those that are wanted.
    QByteArray compte(const QString& libelle, const QByteArray& liste) const {
        if (!filtre_) {
            ligne_(libelle + u" :"_s + nombredentrees(liste));
            return liste;
        }
        QByteArray voulues = filtretypes(liste, demande_.lettres);
        ligne_(libelle + u" :"_s + nombredentrees(liste) + u" ("_s + nombredentrees(voulues) + u" )"_s);
        return voulues;
    }

    void accepte(const QString& mot, const QByteArray& liste) {
        if (nombremots() == RechercheDico::plusdemots)
            runtimeError(Failure::ArrayBounds,
                         {QString::number(nombremots() + 1), QString::number(RechercheDico::plusdemots)});
        mots_.push_back(mot);
        listes_.push_back(liste);
    }

    void motexact(const QString& mot) {
        Recordset& dico = atelier_.corpus.dico();
        const QString majuscules = upperCase(mot);
        dico.seek(Seek::Equal, majuscules);
        if (dico.noMatch())
            return refuse(mot);
        const QByteArray liste = dico.bytes(u"liste"_s);
        if (liste.isEmpty())
            return ligne_(mot + u" : 0"_s);
        accepte(majuscules, compte(mot, liste));
    }

    /// False when the search was stopped.
    bool motjoker(const QString& mot) {
        Recordset& dico = atelier_.corpus.dico();
        const QString debut = sansjoker(mot);
        const QString voulu = normalisemot(debut);
        const auto commence = [&](const QString& lu) { return normalisemot(lu.left(debut.size())) == voulu; };
        dico.seek(Seek::GreaterOrEqual, upperCase(debut));
        if (dico.noMatch() || !commence(dico.text(u"mot"_s))) {
            refuse(mot);
            return true;
        }
        UnionDeListes a;
        do {
            const QByteArray liste = dico.bytes(u"liste"_s);
            if (!liste.isEmpty())
                a.ajoute(compte(lowerCase(dico.text(u"mot"_s)), liste));
            if (!continuer(dico))
                return false;
            dico.moveNext();
        } while (!dico.eof() && commence(dico.text(u"mot"_s)));
        if (!a.liste().isEmpty())
            accepte(mot, a.liste());
        return true;
    }

    /// False when the search has to leave.
    bool continuer(Recordset& table) {
        if (demande_.fenetre)
            return true;
        if (atelier_.cession.due())
            return atelier_.cession.cede(table, arret_);
        return !arret_.stop_requested();
    }

    Bouton demandelimite(const QByteArray& entrees) const {
        const QString question = atelier_.texte(debutdelaquestion) + nombredentrees(entrees) + u' ' +
                                 atelier_.texte(findelaquestion) + u" ?"_s;
        atelier_.sablier.fixepointeur(Sablier::defaut);
        const Bouton reponse = atelier_.dialogues.message(question, atelier_.texte(titredelaquestion), Icone::Aucune,
                                                          Bouton::Oui | Bouton::Non | Bouton::Annuler | Bouton::Aide,
                                                          Bouton::Aucun, pagedaide);
        atelier_.sablier.fixepointeur(Sablier::attente);
        return reponse;
    }

    ResultatDico::Issue ajoute(const QByteArray& entrees, qint64 limite) {
        Recordset& donnees = atelier_.corpus.donnees();
        donnees.setIndex(u"primarykey"_s);
        for (qsizetype ici = 0; ici < entrees.size() && hits_ != limite; ici += octetsparentree) {
            if (!continuer(donnees))
                return ResultatDico::Issue::Arretee;
            const Cle cle = decodeentree(
                QByteArrayView(entrees).sliced(ici).first(std::min<qsizetype>(octetsparentree, entrees.size() - ici)));
            const Recordset* rangee = atelier_.corpus.rangee(cle);
            if (!rangee)
                continue;
            if (ajoutedocument(atelier_.liste, *rangee) != 0)
                break;
            ++hits_;
        }
        atelier_.curseurattente(textecompte(hits_, atelier_.texte));
        return ResultatDico::Issue::Terminee;
    }

    const Atelier& atelier_;
    const std::function<void(const QString&)>& ligne_;
    const DemandeDico demande_;
    const std::stop_token arret_;
    const bool filtre_;
    // Slot 0 is not used.
    std::vector<QString> mots_ = std::vector<QString>(1);
    std::vector<QByteArray> listes_ = std::vector<QByteArray>(1);
    qint64 hits_ = 0;
};

} // namespace

DemandeDico DemandeDico::defenetre(const QString& mots, QStringView code) {
    return {mots, lettredutype(code), true, sanslimite, true};
}

QStringList decoupemots(QStringView ligne, QStringView separateurs) {
    QStringList mots;
    qsizetype debut = 0;
    for (qsizetype ici = 0; ici < ligne.size(); ++ici) {
        if (!separateurs.contains(ligne[ici]))
            continue;
        mots << ligne.sliced(debut, ici - debut).toString();
        debut = ici + 1;
    }
    if (debut < ligne.size())
        mots << ligne.sliced(debut).toString();
    return mots;
}

QString motdelaligne(const QString& ligne) {
    const qsizetype fin = ligne.indexOf(u" :"_s);
    return fin < 0 ? QString() : ligne.left(fin);
}

RechercheDico::RechercheDico(Atelier atelier, std::function<void(const QString&)> ligne, std::function<double()> hasard)
    : atelier_(std::move(atelier)), ligne_(std::move(ligne)), hasard_(std::move(hasard)) {
    if (!hasard_)
        hasard_ = [] { return QRandomGenerator::global()->generateDouble(); };
}

ResultatDico RechercheDico::cherche(const DemandeDico& demande, const std::stop_token& arret) {
    const Attente attente(atelier_.sablier);
    ResultatDico resultat;
    atelier_.cession.commence();
    commenceliste(atelier_);
    if (!demande.fenetre && demande.mots.size() < lignecourte) {
        resultat.issue = ResultatDico::Issue::TexteCourt;
        return resultat;
    }
    Passe passe(atelier_, ligne_, demande, arret);
    resultat.issue = passe.lit() ? passe.affiche(passe.joint(hasard_)) : ResultatDico::Issue::Arretee;
    resultat.hits = passe.hits();
    resultat.fin = finitliste(atelier_);
    if (demande.fenetre)
        atelier_.liste.visible = resultat.fin.resultatpresent;
    return resultat;
}

} // namespace velm
