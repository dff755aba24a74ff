#pragma once
// The text of a document window: what is read in it, shown in a view with its links and its pop-up menu.
#include "core/ordre.h"
#include "core/texte.h"
#include "document/ui/contextetextes.h"

#include <QObject>

#include <memory>

class QAction;
class QMenu;
class QPoint;

namespace velm {

class BarreTextes;
class ListeDeLiens;
class RichTextBox;
class VoletLiens;

class ZoneTexte final : public QObject, public VueLecture {
    Q_OBJECT
    Q_MOC_INCLUDE("document/ui/listedeliens.h")

public:
    /// Parts of one window, which owns and places them; the zone is its child as well.
    struct Parties {
        RichTextBox& vue;
        BarreTextes& barre;
        VoletLiens& volet;
    };
    ZoneTexte(const Parties& parties, const ContexteTextes& contexte, QWidget* fenetre);
    ~ZoneTexte() override;

    Lecture& lecture() const { return *lecture_; }
    RichTextBox& vue() const { return parties_.vue; }

    /// The selection, or the whole rich text when nothing is selected, on the clipboard; nothing of an empty text.
    void copie();
    /// The same with a line behind it that says where it is from.
    void copieavecreference();
    void toutselectionner();
    /// Hands the document, or the selected part of it, on to the dossiers.
    void range();
    /// Whether there is a document, and a place for it.
    bool peutranger() const;
    /// Shows what the base knows of the document, above the whole program.
    void montreproprietes();

    // ---- VueLecture
    void changetitre(const QString& titre) override;
    void activemenus() override;
    void rafraichit() override;
    void revele(qsizetype position) override;
    void montreoccurrences(const std::vector<Occurrence>& occurrences) override;
    void ditcible(const QString& texte) override;
    void dit(const QString& texte) override;

signals:
    void arrive();                  ///< another document is about to be shown
    void menuschanges();            ///< the first document was asked for
    void sortie(velm::Ordre ordre); ///< the text is to be printed or sent
    void cible(const QString& texte);
    void ranger(const QString& cle, const QString& titre, qsizetype debut, qsizetype longueur);
    void bascule(velm::ListeDeLiens* liste); ///< the entry of a list was chosen

protected:
    bool eventFilter(QObject* objet, QEvent* evenement) override;

private:
    QString reference(qsizetype debut, qsizetype longueur) const;
    void copiedelafenetre();
    void montretitre(const QPoint& ou);
    void construitmenu();
    QAction* entree(QMenu& menu, const QString& nom, Texte texte, const QString& image) const;
    void construitentreesdeslistes();
    void montremenu(const QPoint& ou);

    Parties parties_;
    ContexteTextes contexte_;
    QWidget* fenetre_;
    QMenu* menu_;
    std::unique_ptr<Lecture> lecture_;
};

} // namespace velm
