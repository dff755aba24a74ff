#pragma once
// What leaves the program on paper, in files and by mail: the open job and its buttons, the preview, and the commands
// of document windows that hand their text on.
#include "core/corpus.h"
#include "core/langue.h"
#include "core/reglages.h"
#include "document/styles.h"
#include "print/exportpdf.h"
#include "print/imprimerie.h"
#include "print/sortietextes.h"
#include "print/ui/avancementimpression.h"
#include "shell/logique/ecrans.h"
#include "shell/mondeexterieur.h"

#include <QObject>
#include <QPointer>

#include <memory>

namespace velm {

class Bureau;
class Ecrangeneral;
class FrmApercu;
class Seance;
class Selection;
class Textes;

class Impressions final : public QObject, public Travaux {
    Q_OBJECT

public:
    /// None is owned; all of it outlives this.
    struct Donnees {
        Reglages& reglages;
        Langue& langue;
        Corpus& corpus;
        const TableStyles& styles;
        const Seance& seance;
        const MondeExterieur& monde;
    };
    explicit Impressions(const Donnees& donnees);
    ~Impressions() override;

    /// The frame in which it works, from now on until decharge().
    void attache(Ecrangeneral& ecran, Bureau& bureau, Selection& selection);
    void decharge();
    /// What a document window wants to hand on is handed on.
    void suit(Textes& fenetre);
    /// What can be printed or looked at may have become another.
    void actualise();

    // ---- commands
    /// Prints what is in front: a document, or the selection list where the search form is.
    void imprimer();
    void terminer();
    void abandonner();
    void configurer();
    void apercu();
    FrmApercu* fenetreapercu() const;

    // ---- dossiers
    void imprimerdossier(const QString& libelle, const QStringList& cles);
    void exporterdossier(const QString& libelle, const QStringList& cles);

    // ---- Travaux
    bool impressionouverte() const override;
    void termineimpression() override { terminer(); }
    void abandonneimpression() override { abandonner(); }

private:
    QString texte(Texte lequel) const { return donnees_.langue.lireressource(lequel); }
    void sort(Textes& fenetre, Ordre ordre);
    void montreboutons(bool ouvert);
    bool listeimprimable() const;
    FrmApercu& nouvelapercu();
    void apercudutravail();
    void apercudelaliste();
    void apercududocument(Textes& fenetre);
    void exporte(const QString& titre, const ExportPdf::Compose& compose);

    Donnees donnees_;
    Ecrangeneral* ecran_ = nullptr;
    Bureau* bureau_ = nullptr;
    Selection* selection_ = nullptr;
    AvancementImpression avancement_;
    std::unique_ptr<SortieTextes> sortie_;
    std::unique_ptr<ExportPdf> export_;
    std::unique_ptr<Imprimerie> imprimerie_;
    QPointer<FrmApercu> apercu_;
};

} // namespace velm
