#include "core/parametres.h"

#include "platform/system/files.h"

namespace velm {

namespace {

const QString& sectionediteur() {
    static const QString section = QStringLiteral("EDITEUR");
    return section;
}

/// Reads print settings; the dossier variant has DOSSIER behind each key.
class LecteurImpression {
public:
    LecteurImpression(const Reglages& reglages, QString suffixe) : reglages_(reglages), suffixe_(std::move(suffixe)) {}

    ReglagesImpression lit() const {
        ReglagesImpression r;
        r.margehaute = entier("PRINTERMARGEHAUTE", 567);
        r.margebasse = entier("PRINTERMARGEBASSE", 567);
        r.margedroite = entier("PRINTERMARGEDROITE", 567);
        r.margegauche = entier("PRINTERMARGEGAUCHE", 567);
        r.margeentete = entier("PRINTERMARGEENTETE", 567);
        r.margepieddepage = entier("PRINTERMARGEPIEDDEPAGE", 567);
        r.nopageentete = petit("NOPAGEENTETE", 0);
        r.nopagepied = petit("NOPAGEPIED", 0);
        r.textentete = texte("TEXTENTETE", QString());
        r.textpied = texte("TEXTPIED", QString());
        // The keys of alignment say TEXT where those of the font say TEXTE: both spellings are stored data.
        r.lignenopageentete = ligne("CADRAGENOPAGEENTETE", "NOPAGEENTETE");
        r.ligneentete = ligne("CADRAGETEXTENTETE", "TEXTEENTETE");
        r.lignenopagepied = ligne("CADRAGENOPAGEPIED", "NOPAGEPIED");
        r.lignepied = ligne("CADRAGETEXTPIED", "TEXTEPIED");
        r.choiximprimante = booleen("CHOIXIMPRIMANTE");
        r.ejectionautomatique = booleen("EJECTIONAUTOMATIQUE");
        r.ligneseparatrice = booleen("LIGNESEPARATRICE");
        return r;
    }

private:
    LigneImpression ligne(const char* cadrage, const QString& police) const {
        return {petit(cadrage, 2),
                {texte(police + QStringLiteral("FONTE"), QStringLiteral("Arial")),
                 petit(police + QStringLiteral("TAILLE"), 10), petit(police + QStringLiteral("GRAS"), 0),
                 petit(police + QStringLiteral("ITALIQUE"), 0)}};
    }
    LigneImpression ligne(const char* cadrage, const char* police) const {
        return ligne(cadrage, QString::fromLatin1(police));
    }

    QString cle(const QString& nom) const { return nom + suffixe_; }
    qint64 entier(const char* nom, qint64 defaut) const {
        return reglages_.entier(sectionediteur(), cle(QString::fromLatin1(nom)), defaut, true);
    }
    int petit(const QString& nom, int defaut) const {
        return static_cast<int>(reglages_.entier(sectionediteur(), cle(nom), defaut, true));
    }
    int petit(const char* nom, int defaut) const { return petit(QString::fromLatin1(nom), defaut); }
    QString texte(const QString& nom, const QString& defaut) const {
        return reglages_.texte(sectionediteur(), cle(nom), defaut, true);
    }
    QString texte(const char* nom, const QString& defaut) const { return texte(QString::fromLatin1(nom), defaut); }
    bool booleen(const char* nom) const {
        return reglages_.booleen(sectionediteur(), cle(QString::fromLatin1(nom)), true, true);
    }

    const Reglages& reglages_;
    QString suffixe_;
};

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
    const QString section = QStringLiteral("TOOLS");
    Bornes bornes;
    bornes.max = nombremaxoutils;
    const qint64 nombre = reglages.entier(section, QStringLiteral("NOMBRE"), 0, true, bornes);
    std::vector<Outil> outils;
    for (qint64 n = 1; n <= nombre; ++n) {
        const auto lit = [&](const QString& cle) {
            return reglages.texte(section, cle + QString::number(n), QString(), true);
        };
        Outil outil{lit(QStringLiteral("COMMANDE")), lit(QStringLiteral("CHEMIN")), lit(QStringLiteral("ICONE")),
                    lit(QStringLiteral("INFO-BULLE")), lit(QStringLiteral("PARAM"))};
        if (!outil.chemin.isEmpty() && !fileExists(outil.chemin))
            outil.chemin = joinPath(application, outil.chemin);
        outils.push_back(std::move(outil));
    }
    return outils;
}

} // namespace

TextesConstants littextesconstants(Langue& langue) {
    TextesConstants t;
    t.stylecondense = langue.lireressource(1400);
    t.stylesuite = langue.lireressource(1401);
    t.titre = langue.lireressource(300);
    t.motscles = langue.lireressource(1407);
    t.date = langue.lireressource(1212);
    t.reference = langue.lireressource(1412);
    t.stylenote = langue.lireressource(1404);
    t.stylecommentaire = langue.lireressource(1408);
    t.source = langue.lireressource(1409);
    t.stylemarque = langue.lireressource(1411);
    t.page = langue.lireressource(2050);
    t.sur = langue.lireressource(2051);
    return t;
}

namespace {

void remplitimages(Parametres& p) {
    for (std::size_t i = 0; i < p.imagesfermees.size(); ++i) {
        const QString base = i == 1   ? QStringLiteral("collection")
                             : i == 2 ? QStringLiteral("livre")
                                      : QStringLiteral("chapitre");
        const QString accord = i == 1 ? QStringLiteral("e") : QString();
        p.imagesfermees[i] = base + QStringLiteral("fermé") + accord;
        p.imagesouvertes[i] = base + QStringLiteral("ouvert") + accord;
    }
}

} // namespace

QString separateursmots() {
    return QStringLiteral("\r\n ,.[]/»«“`@&¶§\"\t()'{}:!;?-+=<>_°%…|\u00FF\u00A0");
}

QString separateursmotsjoker() {
    return separateursmots() + u'*';
}

QString adresseediteur() {
    return QStringLiteral("https://www.example.org/velmorante/aide");
}

QString avecseparateur(const QString& repertoire) {
    // A stored place that ends in one already gets no second: it is written back at each start and would grow for ever.
    return withSeparator(repertoire);
}

Parametres litparametres(Reglages& reglages, Langue& langue, const QString& dossierprogramme) {
    Parametres p;
    const QString base = QStringLiteral("BASE");
    const QString web = QStringLiteral("WEB");
    p.repertoiredebase = avecseparateur(reglages.texte(base, QStringLiteral("CHEMIN"), dossierprogramme, false));
    p.repertoireediteur =
        avecseparateur(reglages.texte(sectionediteur(), QStringLiteral("CHEMIN"), dossierprogramme, false));
    p.repertoireapplication =
        avecseparateur(reglages.texte(base, QStringLiteral("APPLICATION"), dossierprogramme, false));
    p.fichiermaitre = p.repertoireapplication + QStringLiteral("/master.ini");
    reglages.choisitmaitre(p.fichiermaitre);

    langue.choisitfichier(
        p.repertoireapplication, dossierprogramme,
        reglages.texte(QStringLiteral("LANGUE"), QStringLiteral("EXTENSION"), QStringLiteral("FR"), true));
    p.extensionlangue = langue.extension();

    p.unite = static_cast<int>(reglages.entier(sectionediteur(), QStringLiteral("UNITE"), 0, true));
    p.impression = LecteurImpression(reglages, QString()).lit();
    p.webaide = reglages.texte(web, QStringLiteral("AIDE"), adresseediteur(), true);
    p.testconnect = static_cast<int>(reglages.entier(web, QStringLiteral("TESTCONNECT"), 1, true));
    p.majcommande = reglages.texte(web, QStringLiteral("MAJCOMMANDE"), QStringLiteral("UpdNet.exe"), true);
    const QString application =
        p.repertoireapplication.endsWith(u'/') ? p.repertoireapplication : p.repertoireapplication + u'/';
    p.majchemin = reglages.texte(web, QStringLiteral("MAJCHEMIN"), application + QStringLiteral("internet"), false);
    p.multifenetre =
        static_cast<int>(reglages.entier(QStringLiteral("GENERALITES"), QStringLiteral("MULTIFENETRE"), 1, true));
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
    const QString barre = QStringLiteral("BARRE");
    const QString generalites = QStringLiteral("GENERALITES");
    const QString recherche = QStringLiteral("RECHERCHE");
    const auto petit = [&](const QString& section, const char* cle, int defaut, bool maitre = true) {
        return static_cast<int>(reglages.entier(section, QString::fromLatin1(cle), defaut, maitre));
    };
    p.menuediteur = reglages.booleen(QStringLiteral("MASTER"), QStringLiteral("EDITEUR"), true, true);
    p.impressiondossier = LecteurImpression(reglages, QStringLiteral("DOSSIER")).lit();

    p.barrecommande = petit(barre, "COMMANDE", 1);
    p.barreoutils = petit(barre, "OUTILS", 4);
    p.barreecran = petit(barre, "ECRAN", 3);
    // Read here under one spelling, saved under COMMANDESVISISIBLES: the command bar always comes back.
    p.commandesvisibles = petit(barre, "COMMANDESVISIBLES", 1);
    p.ecranvisible = petit(barre, "ECRANVISIBLE", 1);
    p.outilsvisibles = petit(barre, "OUTILSVISIBLES", 1);
    p.barreetat = reglages.booleen(barre, QStringLiteral("ETAT"), true, true);

    p.fond = petit(generalites, "FOND", 1);
    p.fondno = petit(generalites, "FONDNO", 0, false);
    p.fondcouleur = reglages.entier(generalites, QStringLiteral("FONDCOULEUR"), 0xC0FFFF, false);
    p.checkquit = petit(generalites, "CHECKQUIT", 0);
    p.restaurefen = petit(generalites, "RESTAUREFEN", 0);

    p.marquecouleur = reglages.entier(recherche, QStringLiteral("MARQUECOULEUR"), 0x8000FF, true);
    p.marquebold = petit(recherche, "MARQUEBOLD", 1);
    p.marqueitalic = petit(recherche, "MARQUEITALIC", 0);
    p.marqueauto = petit(recherche, "MARQUEAUTO", 1);
    p.combonombre = petit(recherche, "COMBONOMBRE", 0, false);
    p.combonombredico = petit(recherche, "COMBONOMBREDICO", 0, false);
    p.largeurselection = reglages.reel(sectionediteur(), QStringLiteral("LARGEURSELECTION"), 4305, true);

    p.repertoiredossiers =
        avecseparateur(reglages.texte(QStringLiteral("BASE"), QStringLiteral("DOSSIERS"), dossierprogramme, false));
    p.aidechemin = reglages.texte(QStringLiteral("AIDE"), QStringLiteral("CHEMIN"), dossierprogramme, false);
    if (p.aidechemin.isEmpty())
        p.aidechemin = dossierprogramme;
    p.aidefichier =
        reglages.texte(QStringLiteral("AIDE"), QStringLiteral("NOMFICHIER"), QStringLiteral("VELM2000.CHM"), true);
    p.fichieraide = p.aidechemin + u'/' + p.aidefichier;
    return p;
}

} // namespace velm
