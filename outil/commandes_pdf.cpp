// Documents and dossiers as PDF files, set and written by the reader's own engines.
#include "core/noms.h"
#include "core/parametres.h"
#include "core/texte.h"
#include "outil/atelier.h"
#include "outil/base.h"
#include "outil/sortie.h"
#include "platform/paper/pdffile.h"
#include "platform/system/files.h"
#include "platform/system/settings.h"
#include "print/documentcharge.h"
#include "print/epreuve.h"
#include "print/impressiondossier.h"

#include <QDateTime>

namespace velm::outil {

using namespace Qt::Literals::StringLiterals;

namespace {

/// Nobody is asked anything.
class Muet final : public DialogueImpression, public Dialogues {
public:
    ReponseImpression demande(const Question&) override { return ReponseImpression::Tout; }
    Bouton message(const Message& message) override { return boutonAbandon(message.boutons); }
    std::optional<QString> openFile(const ChoixFichier&) override { return {}; }
    std::optional<QString> saveFile(const ChoixFichier&) override { return {}; }
    std::optional<QString> chooseFolder(const QString&, const QString&) override { return {}; }
};

/// The user's margins, headers and styles, as the reader reads them.
class Presse {
public:
    explicit Presse(Contexte& contexte) : contexte_(contexte), magasin_(noms::fichierreglages()), reglages_(magasin_) {
        reglages_.choisitmaitre(joinPath(contexte.dossierprogramme(), u"master.ini"));
        parametres_ = litparametres(reglages_, contexte.langue(), contexte.dossierprogramme());
        preferences_ = litpreferences(reglages_, contexte.dossierprogramme());
        styles_ = litstyles(reglages_, contexte.langue(), parametres_.textes);
        epreuve_ =
            std::make_unique<Epreuve>(Epreuve::Donnees{sheetA4,
                                                       parametres_.impression,
                                                       preferences_.impressiondossier,
                                                       [&contexte](Texte numero) { return contexte.texte(numero); },
                                                       {}});
    }

    /// Each document begins on a sheet of its own.
    int imprime(Corpus& corpus, const QStringList& cles) {
        DocumentCharge charge({corpus, styles_, sablier_});
        for (const QString& cle : cles) {
            if (!charge.charge(decoupecle(cle)))
                return contexte_.echoue(DocumentAbsent, Texte::DocumentAbsent, {cle});
            if (titre_.isEmpty())
                titre_ = charge.document().titre;
            epreuve_->documententier(charge.document());
        }
        return Reussite;
    }
    void imprimedossier(Corpus& corpus, const QString& nom, const QStringList& cles) {
        titre_ = nom;
        const auto annonce = [this](const QString& titre, const ListesLiens* liens) {
            epreuve_->annonce(titre, liens);
        };
        ImpressionDossier({epreuve_->impression(), preferences_.impressiondossier, muet_, muet_, corpus, styles_,
                           sablier_, [this](Texte numero) { return contexte_.texte(numero); }, annonce})
            .compose(nom, cles);
    }
    int ecrit(const QString& chemin) {
        const JobPages& pages = epreuve_->pages();
        if (pages.pages.empty())
            return contexte_.echoue(DocumentAbsent, Texte::PdfVide);
        const QByteArray octets =
            pdfOf(pages, {titre_, noms::languedesdocuments.toString(), QDateTime::currentDateTime()});
        if (const FileError erreur = writeWhole(chemin, octets); !erreur.ok())
            return contexte_.echouefichier(Texte::FichierNonEcrit, chemin, erreur.kind, erreur.words);
        return Reussite;
    }

private:
    Contexte& contexte_;
    ReglagesStore magasin_;
    Reglages reglages_;
    Parametres parametres_;
    Preferences preferences_;
    TableStyles styles_;
    SablierMuet sablier_;
    Muet muet_;
    QString titre_;
    std::unique_ptr<Epreuve> epreuve_;
};

int imprimedossier(Contexte& contexte, Presse& presse, Corpus& corpus) {
    const QString ecrit = contexte.valeur(u"--dossier"_s);
    bool nombre = false;
    const qint64 numero = ecrit.toLongLong(&nombre);
    if (!nombre)
        return contexte.echoue(LigneIncorrecte, Texte::ArgumentImpropre, {ecrit, u"--dossier"_s});
    Atelier atelier(contexte);
    if (atelier.magasin.dossiersindisponibles())
        return echouemagasin(contexte, Texte::FichierIllisible, atelier.magasin.echec());
    const auto dossier = dossiernumero(atelier.magasin.dbdossiers(), numero);
    if (!dossier)
        return contexte.echoue(DocumentAbsent, Texte::DossierAbsent, {ecrit});
    atelier.contenu.liste(numero);
    QStringList cles;
    for (int index = 1; index <= atelier.elements.count(); ++index)
        cles << atelier.elements.key(index);
    presse.imprimedossier(corpus, dossier->nom, cles);
    return Reussite;
}

int compose(Contexte& contexte, Presse& presse, Corpus& corpus, const QStringList& cles) {
    return contexte.option(u"--dossier"_s) ? imprimedossier(contexte, presse, corpus) : presse.imprime(corpus, cles);
}

} // namespace

int pdf(Contexte& contexte) {
    QStringList cles = contexte.arguments();
    const QString chemin = cles.takeLast();
    const bool dossier = contexte.option(u"--dossier"_s);
    if (dossier && !cles.isEmpty())
        return contexte.echoue(LigneIncorrecte, Texte::ArgumentEnTrop, {chemin});
    if (!dossier && cles.isEmpty())
        return contexte.echoue(LigneIncorrecte, Texte::ArgumentManquant, {contexte.texte(Texte::ArgumentsPdf)});
    Corpus corpus;
    if (const int code = ouvrebase(contexte, corpus, cheminbase(contexte)); code != Reussite)
        return code;
    Presse presse(contexte);
    try {
        const int code = compose(contexte, presse, corpus, cles);
        return code == Reussite ? presse.ecrit(chemin) : code;
    } catch (const FeuilleTropPetite&) {
        return contexte.echoue(Echec, Texte::MargesSansPlace);
    } catch (const PositionHorsBornes&) {
        return contexte.echoue(Echec, Texte::MargesSansPlace);
    } catch (const PrintFailure& echec) {
        return contexte.echouefichier(Texte::FichierNonEcrit, chemin, Obstacle::Other, QString::fromUtf8(echec.what()));
    }
}

} // namespace velm::outil
