#include "collection/vocabulaire.h"

#include <QSet>
#include <QStringList>

#include <algorithm>

namespace velm {
namespace {

using namespace Qt::Literals::StringLiterals;

/// The head of the law of frequencies, in order.
const QString outils =
    u"de la le et les des à du en un par une dans est au pour que sur qui ou ne sont aux avec ce son "
    "pas être sa ses cette peut il dont sous ces lorsque elle leur sans entre même tout après fait "
    "doit si toute selon deux mois jours ans œuvre délai contrat article loi personne demande droit "
    "conditions autorité décision service prix vente bien société dispositions tribunal présent "
    "mentionné application prévues titre cas compte conseil code durée montant acte accord juge "
    "ministre activité obligation professionnel information responsabilité État contrôle procédure"_s;
const QString prefixes = u"- re dé sur sous contre inter pré co in"_s;
const QString racines = u"form port pos tract duc serv press mand vis stitu fér pens lég mesur plac charg cit clar "
                        "damn cern cour crit curs dict duir fend fin fix flu fond franch gard grad jur lev lim loc "
                        "mar men met mis mob mon not offr ord par part pay pel plic point pren prim prob prov pub "
                        "quis rang rec reg rend rép rest roy sanc scri séd sign som soci sol spec suit temp ten term "
                        "test tour trans trib us val vend vers vic voc vot cess"_s;
const QString suffixes = u"er tion teur ment able ité ance é ée és ées ions ait ant age isme iste eur euse if ive al "
                         "ale aux aire oire ure ation ateur atrice ement"_s;
const QString syllabesbro = u"ca chi der gué ken mel nis que sse tan ti vo cé dè fê gnan lli mu pi ri su thè xa zy"_s;
const QString finsbro = u"ge te re ment tion teur x l ne r é ée s nt che gne lle sse que nce"_s;

constexpr quint64 echelle = quint64(1) << 40;

} // namespace

quint64 Alea::suivant() {
    etat_ += 0x9E3779B97F4A7C15U;
    quint64 z = etat_;
    z = (z ^ (z >> 30)) * 0xBF58476D1CE4E5B9U;
    z = (z ^ (z >> 27)) * 0x94D049BB133111EBU;
    return z ^ (z >> 31);
}

Vocabulaire::Vocabulaire() {
    QSet<QString> vus;
    const auto ajoute = [&](const QString& mot) {
        if (!vus.contains(mot)) {
            vus.insert(mot);
            mots_.push_back(mot);
        }
    };
    for (const QString& mot : outils.split(u' '))
        ajoute(mot);
    const std::size_t tete = mots_.size();
    for (const QString& prefixe : prefixes.split(u' ')) {
        for (const QString& racine : racines.split(u' ')) {
            for (const QString& suffixe : suffixes.split(u' '))
                ajoute((prefixe == u"-" ? QString() : prefixe) + racine + suffixe);
        }
    }
    // The invented words in any order, so that neighbours in frequency are not neighbours in spelling.
    Alea alea(1);
    for (std::size_t i = mots_.size(); i > tete + 1; --i)
        std::swap(mots_[i - 1], mots_[tete + alea.sous(i - tete)]);
    for (const QString& syllabe : syllabesbro.split(u' ')) {
        for (const QString& fin : finsbro.split(u' '))
            bro_.push_back(u"bro"_s + syllabe + fin);
    }

    quint64 total = 0;
    std::vector<quint64> cumul;
    for (std::size_t rang = 0; rang < mots_.size(); ++rang) {
        total += echelle / (rang + 2);
        cumul.push_back(total);
    }
    rangs_.resize(std::size_t(1) << bitsdetirage);
    std::size_t rang = 0;
    for (std::size_t i = 0; i < rangs_.size(); ++i) {
        while (cumul[rang] <= (total >> bitsdetirage) * i)
            ++rang;
        rangs_[i] = static_cast<quint16>(rang);
    }
}

} // namespace velm
