#include "core/parametres.h"

#include "core/tablereglages.h"
#include "core/texte.h"
#include "platform/system/files.h"

namespace velm {

using namespace Qt::Literals::StringLiterals;

namespace {

LigneImpression litligne(const Reglages& reglages, const ReglagesLigne& ligne, Imprime quoi) {
    return {reglages.lit(ligne.cadrage[quoi]),
            {reglages.lit(ligne.fonte[quoi]), reglages.lit(ligne.taille[quoi]), reglages.lit(ligne.gras[quoi]),
             reglages.lit(ligne.italique[quoi])}};
}

ReglagesImpression litimpression(const Reglages& reglages, Imprime quoi) {
    ReglagesImpression r;
    r.margehaute = reglages.lit(reglage::margehaute[quoi]);
    r.margebasse = reglages.lit(reglage::margebasse[quoi]);
    r.margedroite = reglages.lit(reglage::margedroite[quoi]);
    r.margegauche = reglages.lit(reglage::margegauche[quoi]);
    r.margeentete = reglages.lit(reglage::margeentete[quoi]);
    r.margepieddepage = reglages.lit(reglage::margepieddepage[quoi]);
    r.nopageentete = reglages.lit(reglage::nopageentete[quoi]);
    r.nopagepied = reglages.lit(reglage::nopagepied[quoi]);
    r.textentete = reglages.lit(reglage::textentete[quoi]);
    r.textpied = reglages.lit(reglage::textpied[quoi]);
    r.lignenopageentete = litligne(reglages, reglage::lignenopageentete, quoi);
    r.ligneentete = litligne(reglages, reglage::ligneentete, quoi);
    r.lignenopagepied = litligne(reglages, reglage::lignenopagepied, quoi);
    r.lignepied = litligne(reglages, reglage::lignepied, quoi);
    r.choiximprimante = reglages.lit(reglage::choiximprimante[quoi]);
    r.ejectionautomatique = reglages.lit(reglage::ejectionautomatique[quoi]);
    r.ligneseparatrice = reglages.lit(reglage::ligneseparatrice[quoi]);
    return r;
}

int unitetwips(int unite) {
    switch (unite) {
    case 0:
        return 567;
    case 1:
        return 1440;
    default:
        return 0; // no unit: lengths are shown as 0 and margins left alone
    }
}

std::vector<Outil> litoutils(const Reglages& reglages, const QString& application) {
    const int nombre = reglages.lit(reglage::nombreoutils);
    std::vector<Outil> outils;
    for (int n = 1; n <= nombre; ++n) {
        Outil outil{reglages.lit(reglage::outilcommande[n]), reglages.lit(reglage::outilchemin[n]),
                    reglages.lit(reglage::outilicone[n]), reglages.lit(reglage::outilinfobulle[n]),
                    reglages.lit(reglage::outilparam[n])};
        if (!outil.chemin.isEmpty() && !fileExists(outil.chemin))
            outil.chemin = joinPath(application, outil.chemin);
        outils.push_back(std::move(outil));
    }
    return outils;
}

} // namespace

TextesConstants littextesconstants(Langue& langue) {
    TextesConstants t;
    t.stylecondense = langue.lireressource(Texte::StyleSuiteCondensee);
    t.stylesuite = langue.lireressource(Texte::StyleSuite);
    t.titre = langue.lireressource(Texte::Titre);
    t.motscles = langue.lireressource(Texte::MotsCles);
    t.date = langue.lireressource(Texte::Date);
    t.reference = langue.lireressource(Texte::Reference);
    t.stylenote = langue.lireressource(Texte::StyleNote);
    t.stylecommentaire = langue.lireressource(Texte::StyleCommentaire);
    t.source = langue.lireressource(Texte::Source);
    t.stylemarque = langue.lireressource(Texte::StyleMarque);
    t.page = langue.lireressource(Texte::Page);
    t.sur = langue.lireressource(Texte::SurTantDePages);
    return t;
}

namespace {

void remplitimages(Parametres& p) {
    for (std::size_t i = 0; i < p.imagesfermees.size(); ++i) {
        const QString base = i == 1 ? u"collection"_s : i == 2 ? u"livre"_s : u"chapitre"_s;
        const QString accord = i == 1 ? u"e"_s : QString();
        p.imagesfermees[i] = base + u"fermé"_s + accord;
        p.imagesouvertes[i] = base + u"ouvert"_s + accord;
    }
}

} // namespace

QString separateursmots() {
    return u"\r\n ,.[]/»«“`@&¶§\"\t()'{}:!;?-+=<>_°%…|\u00FF\u00A0"_s;
}

QString separateursmotsjoker() {
    return separateursmots() + u'*';
}

QString avecseparateur(const QString& repertoire) {
    // A stored place that ends in one already gets no second: it is written back at each start and would grow for ever.
    return withSeparator(repertoire);
}

Parametres litparametres(Reglages& reglages, Langue& langue, const QString& dossierprogramme) {
    Parametres p;
    const auto dossier = [&](const ReglageLieu& lieu) { return avecseparateur(reglages.lit(lieu, dossierprogramme)); };
    p.repertoiredebase = dossier(reglage::dossierbase);
    p.repertoireediteur = dossier(reglage::dossierediteur);
    p.repertoireapplication = dossier(reglage::dossierapplication);
    p.fichiermaitre = p.repertoireapplication + u"/master.ini"_s;
    reglages.choisitmaitre(p.fichiermaitre);

    langue.choisitfichier(p.repertoireapplication, dossierprogramme, reglages.lit(reglage::langue));
    p.extensionlangue = langue.extension();

    p.unite = reglages.lit(reglage::unite);
    p.impression = litimpression(reglages, Imprime::Documents);
    p.webaide = reglages.lit(reglage::adresseaide);
    p.testconnect = reglages.lit(reglage::testeconnexion);
    p.majcommande = reglages.lit(reglage::programmemaj);
    const QString application =
        p.repertoireapplication.endsWith(u'/') ? p.repertoireapplication : p.repertoireapplication + u'/';
    p.majchemin = reglages.lit(reglage::dossiermaj, application + u"internet"_s);
    p.multifenetre = reglages.lit(reglage::multifenetre);
    p.outils = litoutils(reglages, p.repertoireapplication);

    p.uniteentwips = unitetwips(p.unite);
    p.textes = littextesconstants(langue);
    remplitimages(p);
    p.separateurs = separateursmots();
    p.separateursjoker = separateursmotsjoker();
    return p;
}

Preferences litpreferences(Reglages& reglages, const QString& dossierprogramme) {
    Preferences p;
    p.menuediteur = reglages.lit(reglage::menuediteur);
    p.impressiondossier = litimpression(reglages, Imprime::Dossiers);

    p.barrecommande = reglages.lit(reglage::barrecommande);
    p.barreoutils = reglages.lit(reglage::barreoutils);
    p.barreecran = reglages.lit(reglage::barreecran);
    p.commandesvisibles = reglages.lit(reglage::commandesvisibles);
    p.ecranvisible = reglages.lit(reglage::ecranvisible);
    p.outilsvisibles = reglages.lit(reglage::outilsvisibles);
    p.barreetat = reglages.lit(reglage::barreetat);

    p.fond = reglages.lit(reglage::fond);
    p.fondno = reglages.lit(reglage::fondno);
    p.fondcouleur = reglages.lit(reglage::fondcouleur);
    p.checkquit = reglages.lit(reglage::checkquit);
    p.restaurefen = reglages.lit(reglage::restaurefen);

    p.marquecouleur = reglages.lit(reglage::marquecouleur);
    p.marquebold = reglages.lit(reglage::marquebold);
    p.marqueitalic = reglages.lit(reglage::marqueitalic);
    p.marqueauto = reglages.lit(reglage::marqueauto);
    p.combonombre = reglages.lit(reglage::combonombre);
    p.combonombredico = reglages.lit(reglage::combonombredico);
    p.largeurselection = reglages.lit(reglage::largeurselection);

    p.repertoiredossiers = avecseparateur(reglages.lit(reglage::dossierdossiers, dossierprogramme));
    p.aidechemin = reglages.lit(reglage::dossieraide, dossierprogramme);
    if (p.aidechemin.isEmpty())
        p.aidechemin = dossierprogramme;
    p.aidefichier = reglages.lit(reglage::fichieraide);
    p.fichieraide = p.aidechemin + u'/' + p.aidefichier;
    return p;
}

} // namespace velm
