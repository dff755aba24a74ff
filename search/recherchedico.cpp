#include "search/recherchedico.h"

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

/// One search. It holds what was asked, as another one may be asked for while it lets events through.
class RechercheDeLigne {
public:
    RechercheDeLigne(Corpus& corpus, Marche& marche, const EcouteDico& ecoute, const DemandeDico& demande,
                     Resultat& resultat)
        : corpus_(corpus), marche_(marche), ecoute_(ecoute), demande_(demande), resultat_(resultat),
          filtre_(demande.fenetre || demande.lettres.size() < nombredecollections) {}

    /// The lists of the words, in slots from 1 on. False when the search was stopped.
    bool lit() {
        corpus_.dico().setIndex(u"primarykey"_s);
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
        if (nombre != 1 || mots_[1].endsWith(joker))
            resultat_.partout.reset();
        if (nombre == 0)
            return {};
        trierlistes(listes_, mots_, 1, nombre, hasard);
        QByteArray a = listes_[1];
        for (std::size_t i = 2; i < listes_.size(); ++i)
            a = demande_.tous || demande_.fenetre ? intersectionlistes(a, listes_[i]) : unionlistes(a, listes_[i]);
        resultat_.mot1 = sansjoker(mots_[1]);
        resultat_.mot2 = nombre > 1 ? sansjoker(mots_[2]) : QString();
        return a;
    }

    void affiche(const QByteArray& entrees) {
        if (entrees.isEmpty())
            return;
        qint64 limite = demande_.fenetre ? sanslimite : demande_.limite;
        if (entrees.size() > plusdentreessansquestion * octetsparentree && limite == sanslimite &&
            !demande_.sansquestion && ecoute_.limite) {
            const std::optional<qint64> voulue = ecoute_.limite(entrees.size() / octetsparentree);
            if (!voulue) {
                resultat_.issue = Resultat::Issue::Abandonnee;
                return;
            }
            limite = *voulue;
        }
        const qint64 total = entrees.size() / octetsparentree;
        ajoute(entrees, limite);
        resultat_.limitee = resultat_.hits == limite && total > limite;
        if (resultat_.limitee)
            resultat_.total = total;
    }

private:
    int nombremots() const { return static_cast<int>(mots_.size()) - 1; }

    void refuse(const QString& mot) const { ecoute_.ligne(mot + u" : "_s + ecoute_.refus); }

    /// Tells a word with its number of documents, and gives those that are wanted.
    QByteArray compte(const QString& libelle, const QByteArray& liste) const {
        if (!filtre_) {
            ecoute_.ligne(libelle + u" :"_s + nombredentrees(liste));
            return liste;
        }
        QByteArray voulues = filtretypes(liste, demande_.lettres);
        ecoute_.ligne(libelle + u" :"_s + nombredentrees(liste) + u" ("_s + nombredentrees(voulues) + u" )"_s);
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
        Recordset& dico = corpus_.dico();
        const QString majuscules = upperCase(mot);
        dico.seek(Seek::Equal, majuscules);
        if (dico.noMatch())
            return refuse(mot);
        const QByteArray liste = dico.bytes(u"liste"_s);
        if (liste.isEmpty())
            return ecoute_.ligne(mot + u" : 0"_s);
        accepte(majuscules, compte(mot, liste));
        resultat_.partout = liste.size() / octetsparentree;
    }

    /// False when the search was stopped.
    bool motjoker(const QString& mot) {
        Recordset& dico = corpus_.dico();
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
        return demande_.fenetre ? marche_.suit(resultat_) : marche_.continuer(resultat_, table);
    }

    void ajoute(const QByteArray& entrees, qint64 limite) {
        Recordset& donnees = corpus_.donnees();
        donnees.setIndex(u"primarykey"_s);
        for (qsizetype ici = 0; ici < entrees.size() && resultat_.hits != limite; ici += octetsparentree) {
            if (!continuer(donnees))
                return;
            const Cle cle = decodeentree(
                QByteArrayView(entrees).sliced(ici).first(std::min<qsizetype>(octetsparentree, entrees.size() - ici)));
            const Recordset* rangee = corpus_.rangee(cle);
            if (!rangee)
                continue;
            if (!ajoutedocument(resultat_.lignes, *rangee))
                break;
            ++resultat_.hits;
        }
        resultat_.compte = resultat_.hits;
    }

    Corpus& corpus_;
    Marche& marche_;
    const EcouteDico& ecoute_;
    const DemandeDico demande_;
    Resultat& resultat_;
    const bool filtre_;
    // Slot 0 is not used.
    std::vector<QString> mots_ = std::vector<QString>(1);
    std::vector<QByteArray> listes_ = std::vector<QByteArray>(1);
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

RechercheDico::RechercheDico(Corpus& corpus, Marche& marche, EcouteDico ecoute, std::function<double()> hasard)
    : corpus_(corpus), marche_(marche), ecoute_(std::move(ecoute)), hasard_(std::move(hasard)) {
    if (!hasard_)
        hasard_ = [] { return QRandomGenerator::global()->generateDouble(); };
}

void RechercheDico::cherche(const DemandeDico& demande, Resultat& resultat) {
    resultat.commence();
    if (!demande.fenetre && demande.mots.size() < lignecourte) {
        resultat.issue = Resultat::Issue::TexteCourt;
        return;
    }
    RechercheDeLigne recherche(corpus_, marche_, ecoute_, demande, resultat);
    if (recherche.lit())
        recherche.affiche(recherche.joint(hasard_));
}

} // namespace velm
