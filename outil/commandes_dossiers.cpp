// Commands on a store of dossiers, with the reader's own engines.
#include "core/noms.h"
#include "core/schemas.h"
#include "core/texte.h"
#include "dossiers/echangedossiers.h"
#include "outil/atelier.h"
#include "outil/sortie.h"
#include "platform/system/files.h"

#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

namespace velm::outil {

using namespace Qt::Literals::StringLiterals;

namespace {

void ecritjson(const Contexte& contexte, const QJsonObject& objet) {
    contexte.ecrit(QJsonDocument(objet).toJson(QJsonDocument::Indented));
}

void etiquette(Contexte& contexte, Texte libelle, const QString& valeur) {
    contexte.ligne(contexte.texte(Texte::LigneEtiquetee, {contexte.texte(libelle), valeur}));
}

/// To look into, beside a reader that may hold it. Nothing, and told, where that cannot be.
std::unique_ptr<Database> ouvrelecture(Contexte& contexte) {
    const QString chemin = chemindossiers(contexte);
    auto ouverte = Database::open(chemin, OpenMode::Shared, dossiersSchema());
    if (ouverte.error == OpenError::ReadOnly)
        ouverte = Database::open(chemin, OpenMode::ExclusiveReadOnly, dossiersSchema());
    if (!ouverte.database)
        echouemagasin(contexte, Texte::FichierIllisible, {ouverte.obstacle, ouverte.message});
    return std::move(ouverte.database);
}

/// What a repair did, or would do.
void ecritbilan(Contexte& contexte, const BilanReparation& bilan) {
    if (contexte.option(u"--json"_s)) {
        ecritjson(contexte, {{u"dossiers"_s, bilan.dossiers},
                             {u"elements"_s, bilan.elements},
                             {u"comptes"_s, bilan.comptes},
                             {u"ancien"_s, bilan.ancien},
                             {u"nouveau"_s, bilan.nouveau}});
        return;
    }
    etiquette(contexte, Texte::DossiersSansParent, contexte.nombre(bilan.dossiers));
    etiquette(contexte, Texte::ElementsSansDossier, contexte.nombre(bilan.elements));
    etiquette(contexte, Texte::ComptesInexacts, contexte.nombre(bilan.comptes));
    etiquette(contexte, Texte::DernierNumero,
              bilan.ancien == bilan.nouveau ? QString::number(bilan.nouveau)
                                            : u"%1 → %2"_s.arg(bilan.ancien).arg(bilan.nouveau));
    if (bilan.rien())
        contexte.ligne(contexte.texte(Texte::DossiersRienAReparer));
}

} // namespace

int dossierscree(Contexte& contexte) {
    const QString chemin = contexte.arguments().first();
    const auto cree = Database::create(chemin, dossiersSchema());
    if (!cree.database)
        return contexte.echouefichier(Texte::FichierNonEcrit, chemin, cree.obstacle, cree.message);
    Database& base = *cree.database;
    TableWriter parametres(base, u"paramètres"_s, {u"dernoarborescence"_s});
    if (parametres.add({0}) && parametres.finish() && base.sync())
        return Reussite;
    const Obstacle obstacle = base.obstacle();
    const QString mots = base.lastError();
    parametres.finish();
    base.close();
    // Half a store is none.
    QFile::remove(chemin);
    return contexte.echouefichier(Texte::FichierNonEcrit, chemin, obstacle, mots);
}

int dossiersliste(Contexte& contexte) {
    const auto base = ouvrelecture(contexte);
    if (!base)
        return Echec;
    QJsonArray tous;
    for (const LigneDossier& ligne : lignesdesdossiers(*base)) {
        if (contexte.option(u"--json"_s)) {
            tous.append(QJsonObject{{u"numero"_s, ligne.numero},
                                    {u"parent"_s, ligne.parent},
                                    {u"niveau"_s, ligne.niveau},
                                    {u"nom"_s, ligne.nom},
                                    {u"elements"_s, ligne.elements},
                                    {u"perdu"_s, ligne.perdu}});
            continue;
        }
        contexte.ligne(QStringList{QString::number(ligne.numero), QString::number(ligne.elements),
                                   QString(2 * qsizetype(ligne.niveau), u' ') + ligne.nom.simplified()}
                           .join(u'\t'));
    }
    if (contexte.option(u"--json"_s))
        ecritjson(contexte, {{u"dossiers"_s, tous}, {u"nombre"_s, tous.size()}});
    return Reussite;
}

int dossiersexporte(Contexte& contexte) {
    const QString ecrit = contexte.arguments().first();
    bool nombre = false;
    const qint64 numero = ecrit.toLongLong(&nombre);
    if (!nombre)
        return contexte.echoue(LigneIncorrecte, Texte::ArgumentImpropre,
                               {ecrit, contexte.texte(Texte::ArgumentsNumeroDv2)});
    Atelier atelier(contexte);
    if (atelier.magasin.dossiersindisponibles())
        return echouemagasin(contexte, Texte::FichierIllisible, atelier.magasin.echec());
    const auto dossier = dossiernumero(atelier.magasin.dbdossiers(), numero);
    if (!dossier)
        return contexte.echoue(DocumentAbsent, Texte::DossierAbsent, {ecrit});
    atelier.contenu.liste(numero);
    const FichierDossier fichier = fichierdudossier(dossier->nom, atelier.elements);
    const QString chemin = contexte.arguments().last();
    if (const FileError erreur = writeWhole(chemin, ecritfichierdossier(fichier)); !erreur.ok())
        return contexte.echouefichier(Texte::FichierNonEcrit, chemin, erreur.kind, erreur.words);
    if (contexte.option(u"--json"_s))
        ecritjson(contexte, {{u"nom"_s, fichier.nom}, {u"elements"_s, qint64(fichier.elements.size())}});
    return Reussite;
}

int dossiersimporte(Contexte& contexte) {
    const QString chemin = contexte.arguments().first();
    const std::optional<QByteArray> octets = litfichier(contexte, chemin, FileKind::Plain);
    if (!octets)
        return Echec;
    const auto fichier = litfichierdossier(*octets);
    if (!fichier)
        return contexte.echoue(Echec, Texte::PasUnFichierDeDossier, {chemin});
    Atelier atelier(contexte);
    if (atelier.magasin.dossiersindisponibles())
        return echouemagasin(contexte, Texte::FichierIllisible, atelier.magasin.echec());
    atelier.arbre.litprochainnumero();
    atelier.arbre.chargearbre();
    EchecEcriture echec = importedossier(atelier.magasin, atelier.noeuds, atelier.arbre, atelier.contenu, *fichier);
    if (echec.ok())
        echec = atelier.arbre.Sauvearbre();
    if (!echec.ok())
        return echouemagasin(contexte, Texte::FichierNonEcrit, echec);
    const qint64 numero = atelier.arbre.numero(atelier.noeuds.selected());
    if (contexte.option(u"--json"_s)) {
        ecritjson(contexte,
                  {{u"numero"_s, numero}, {u"nom"_s, fichier->nom}, {u"elements"_s, qint64(fichier->elements.size())}});
        return Reussite;
    }
    etiquette(contexte, Texte::DossierNumero, QString::number(numero));
    etiquette(contexte, Texte::DossierNom, fichier->nom);
    etiquette(contexte, Texte::DossierElements, contexte.nombre(qint64(fichier->elements.size())));
    return Reussite;
}

int dossiersverifie(Contexte& contexte) {
    const auto base = ouvrelecture(contexte);
    if (!base)
        return Echec;
    const BilanReparation bilan = Reparation::verifie(*base);
    if (!bilan.echec.ok())
        return echouemagasin(contexte, Texte::FichierIllisible, bilan.echec);
    ecritbilan(contexte, bilan);
    return bilan.rien() ? Reussite : SourceFautive;
}

int dossiersrepare(Contexte& contexte) {
    Magasin magasin;
    magasin.ouvremagasin(chemindossiers(contexte));
    if (magasin.dossiersindisponibles())
        return echouemagasin(contexte, Texte::FichierIllisible, magasin.echec());
    const BilanReparation bilan = Reparation::repare(magasin);
    if (!bilan.echec.ok())
        return echouemagasin(contexte, Texte::FichierNonEcrit, bilan.echec);
    ecritbilan(contexte, bilan);
    return Reussite;
}

} // namespace velm::outil
