#pragma once
// The block of the panel that looks words up in the window's collection.
#include "core/texte.h"

#include <QElapsedTimer>
#include <QWidget>

class QLineEdit;
class QListWidget;
class QPushButton;

namespace velm {

class Etiquette;

class BlocRecherche final : public QWidget {
    Q_OBJECT

public:
    BlocRecherche(const Libelles& texte, QWidget* fenetre);

    QLineEdit* Textedico() const { return mots_; }
    QListWidget* resultat() const { return resultat_; }
    /// Adds a line to the result and shows it, though a search goes on.
    void ajouteligne(const QString& ligne);

signals:
    /// The words are to be looked up: the button, Return in the box, or a click on a line of the result, whose word has
    /// gone into the box.
    void recherche(const QString& mots);

protected:
    void resizeEvent(QResizeEvent* evenement) override;
    void changeEvent(QEvent* evenement) override;

private:
    void moveblocrecherche();
    int hauteurligne() const;
    /// Places the label, if it is shown, the box and the button in a line or one below the other; returns where that
    /// ends.
    int disposeligne(int gauche, int haut, int largeur);
    int disposepile(int gauche, int haut, int largeur);
    void lance();
    void reprend(const QString& ligne);

    Etiquette* etiquette_;
    QLineEdit* mots_;
    QPushButton* bouton_;
    QListWidget* resultat_;
    QElapsedTimer depuislignes_; ///< since the result was painted
    QElapsedTimer depuisclic_;   ///< since a line was clicked
};

} // namespace velm
