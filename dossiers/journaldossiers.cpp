#include "dossiers/journaldossiers.h"

#include "platform/system/files.h"

#include <QHash>
#include <QJsonDocument>
#include <QJsonObject>

#include <algorithm>

namespace velm {
namespace {

using namespace Qt::Literals::StringLiterals;

/// More than the program ever writes: such a file is another's.
constexpr qint64 octetslus = 4 * JournalDossiers::octetsgardes;

/// Of a line, however little is left of it: what has no line that is one, and does not begin so, is another's.
constexpr QByteArrayView commencement = "{\"apres\":";

QByteArray ligne(const Perte& perte) {
    const RangeeRangee& rangee = perte.rangee;
    return QJsonDocument(QJsonObject{{u"quand"_s, perte.quand.toString(Qt::ISODateWithMs)},
                                     {u"sorte"_s, static_cast<int>(perte.sorte)},
                                     {u"dossier"_s, rangee.dossier},
                                     {u"nom"_s, perte.nomdossier},
                                     {u"parent"_s, perte.parent},
                                     {u"nomparent"_s, perte.nomparent},
                                     {u"compte"_s, perte.compte.value_or(rangee.dossier)},
                                     {u"noordre"_s, rangee.noordre},
                                     {u"code"_s, rangee.document.code},
                                     {u"numero"_s, rangee.document.numero},
                                     {u"debut"_s, rangee.extrait.debut},
                                     {u"longueur"_s, rangee.extrait.longueur},
                                     {u"titre"_s, rangee.titre},
                                     {u"apres"_s, perte.apres}})
               .toJson(QJsonDocument::Compact) +
           '\n';
}

std::optional<Perte> lue(const QByteArray& ligne) {
    const QJsonObject lu = QJsonDocument::fromJson(ligne).object();
    const int sorte = lu[u"sorte"].toInt(-1);
    Perte perte;
    perte.quand = QDateTime::fromString(lu[u"quand"].toString(), Qt::ISODateWithMs);
    if (!perte.quand.isValid() || sorte < 0 || sorte > static_cast<int>(Perte::Sorte::DossierSupprime))
        return std::nullopt;
    perte.sorte = static_cast<Perte::Sorte>(sorte);
    perte.rangee = {lu[u"dossier"].toInteger(),
                    lu[u"noordre"].toInteger(),
                    {lu[u"code"].toString(), lu[u"numero"].toString()},
                    lu[u"titre"].toString(),
                    {lu[u"debut"].toInteger(), lu[u"longueur"].toInteger()}};
    perte.nomdossier = lu[u"nom"].toString();
    perte.parent = lu[u"parent"].toInteger();
    perte.apres = lu[u"apres"].toString();
    perte.nomparent = lu[u"nomparent"].toString();
    if (const qint64 compte = lu[u"compte"].toInteger(perte.rangee.dossier); compte != perte.rangee.dossier)
        perte.compte = compte;
    return perte;
}

} // namespace

bool Perte::memeque(const Perte& autre) const {
    return sorte == autre.sorte && rangee == autre.rangee;
}

JournalDossiers::JournalDossiers(std::function<QDateTime()> maintenant) : maintenant_(std::move(maintenant)) {}

void JournalDossiers::ouvre(const QString& magasin) {
    chemin_ = joinPath(folderOf(magasin), nomfichier);
    pertes_.clear();
    const auto taille = fileSize(chemin_);
    const FileBytes lu = taille.value_or(0) > octetslus ? FileBytes{{}, {Obstacle::Other, {}}} : readPlain(chemin_);
    const QDateTime premier = maintenant_().addDays(-jours);
    bool notre = lu.bytes.isEmpty() || lu.bytes.startsWith(commencement);
    for (const QByteArray& une : lu.bytes.split('\n')) {
        const auto perte = lue(une);
        notre = notre || perte;
        if (perte && perte->quand >= premier)
            pertes_.push_back(*perte);
    }
    // What cannot be read is not written over either, nor what is another's.
    lisible_ = (lu.ok() && notre) || !taille;
    manque_ = !lisible_;
}

void JournalDossiers::note(std::vector<Perte> nouvelles) {
    for (Perte& une : nouvelles) {
        une.quand = maintenant_();
        pertes_.push_back(std::move(une));
    }
    if (!nouvelles.empty())
        ecrit();
}

/// The newest first, as they stand at the end: where all are taken off, each is found at once.
void JournalDossiers::retire(const std::vector<Perte>& retrouvees) {
    const std::size_t avant = pertes_.size();
    for (auto une = retrouvees.rbegin(); une != retrouvees.rend(); ++une) {
        const auto place =
            std::find_if(pertes_.rbegin(), pertes_.rend(), [&](const Perte& autre) { return autre.memeque(*une); });
        if (place != pertes_.rend())
            pertes_.erase(std::next(place).base());
    }
    if (pertes_.size() != avant)
        ecrit();
}

void JournalDossiers::renomme(const std::vector<NomDossier>& noms) {
    QHash<qint64, const NomDossier*> parnumero;
    for (const NomDossier& un : noms)
        parnumero[un.numero] = &un;
    suit([&](qint64& numero, QString& nom) {
        const NomDossier* const un = parnumero.value(numero);
        if (un == nullptr || nom == un->apres || (un->avant && nom != *un->avant))
            return false;
        nom = un->apres;
        return true;
    });
}

void JournalDossiers::renumerote(qint64 ancien, const QString& nom, qint64 nouveau) {
    suit([&](qint64& numero, const QString& sien) {
        const bool lui = numero == ancien && sien == nom;
        if (lui)
            numero = nouveau;
        return lui;
    });
}

/// Shows each dossier that is named to who may change it and says whether it did.
void JournalDossiers::suit(const std::function<bool(qint64& numero, QString& nom)>& change) {
    bool changes = false;
    for (Perte& perte : pertes_) {
        changes = change(perte.rangee.dossier, perte.nomdossier) || changes;
        changes = change(perte.parent, perte.nomparent) || changes;
    }
    if (changes)
        ecrit();
}

void JournalDossiers::ecrit() {
    const QDateTime premier = maintenant_().addDays(-jours);
    std::erase_if(pertes_, [&](const Perte& une) { return une.quand < premier; });
    std::vector<QByteArray> lignes;
    qsizetype octets = 0;
    for (auto une = pertes_.rbegin(); une != pertes_.rend(); ++une) {
        lignes.push_back(ligne(*une));
        octets += lignes.back().size();
        if (octets > octetsgardes) {
            lignes.pop_back();
            break;
        }
    }
    pertes_.erase(pertes_.begin(), pertes_.end() - static_cast<std::ptrdiff_t>(lignes.size()));
    QByteArray tout;
    for (auto une = lignes.rbegin(); une != lignes.rend(); ++une)
        tout += *une;
    if (!lisible_ || !writeWhole(chemin_, tout).ok())
        manque_ = true;
}

} // namespace velm
