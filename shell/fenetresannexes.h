#pragma once
// What the program shows beside its documents: the tip, the about box, the partners, the find dialog.
#include "core/corpus.h"
#include "core/reglages.h"
#include "core/texte.h"
#include "shell/logique/astuces.h"
#include "shell/logique/seance.h"
#include "shell/mondeexterieur.h"

#include <QPointer>
#include <QRandomGenerator>

class QDialog;

namespace velm {

class Bureau;
class Ecrangeneral;
class frmFindForm;

class FenetresAnnexes {
public:
    /// None is owned.
    struct Donnees {
        Reglages& reglages;
        Corpus& corpus;
        Seance& seance;
        const MondeExterieur& monde;
        Libelles texte;
    };
    FenetresAnnexes(Ecrangeneral& ecran, Bureau& bureau, Donnees donnees);

    /// `audepart`: nobody has asked for it, and it leaves the start page to be seen.
    void astuce(bool audepart = false);
    void montreapropos();
    void montrepartenaires();
    /// Shows the find dialog of the active document window.
    void montrerecherche();

private:
    void montre(QDialog* fenetre, bool ecartee = false);
    void ecarte(QDialog& fenetre) const;

    Ecrangeneral& ecran_;
    Bureau& bureau_;
    Donnees donnees_;
    Astuces astuces_{[] { return QRandomGenerator::global()->generateDouble(); }};
    QPointer<frmFindForm> recherchetexte_; ///< the frame's child
    QObject vivante_; ///< of connections to the windows that are shown, which may outlive this object
};

} // namespace velm
