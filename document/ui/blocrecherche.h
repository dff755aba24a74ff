#pragma once
// The block of the panel that looks words up in the window's collection.
#include "core/bilan.h"
#include "core/texte.h"

#include <QElapsedTimer>
#include <QWidget>

class QLineEdit;
class QListWidget;
class QPushButton;

namespace velm {

class Etiquette;
class NoteLine;

class BlocRecherche final : public QWidget {
    Q_OBJECT

public:
    BlocRecherche(const Libelles& texte, QWidget* fenetre);

    QLineEdit* Textedico() const { return mots_; }
    QListWidget* resultat() const { return resultat_; }
    /// Adds a line to the result and shows it, though a search goes on.
    void ajouteligne(const QString& ligne);
    /// Pixels that all it says takes above the text; 0 while that is its line alone.
    int hauteurvoulue() const;
    /// Says what came of the last search, until another begins or other words are typed.
    void dit(const BilanRecherche& bilan);

signals:
    void change(); ///< hauteurvoulue() may be another one
    /// The words are to be looked up: the button, Return in the box, or a click on a line of the result, whose word has
    /// gone into the box. All documents are wanted, however many, where the last search has shown some of them only.
    void recherche(const QString& mots, bool tous);

protected:
    void resizeEvent(QResizeEvent* evenement) override;
    void changeEvent(QEvent* evenement) override;

private:
    void moveblocrecherche();
    int disposenote(int gauche, int haut, int largeur);
    bool notedessous(int fin) const;
    int largeurdesparties() const;
    int hauteurligne() const;
    int hauteurresultat() const;
    int hauteuravecresultat() const;
    /// Places the label, if it is shown, the box and the button in a line or one below the other; returns where that
    /// ends.
    int disposeligne(int gauche, int haut, int largeur);
    int disposepile(int gauche, int haut, int largeur);
    void lance(const QString& mots, bool tous = false);
    void reprend(const QString& ligne);

    Etiquette* etiquette_;
    QLineEdit* mots_;
    QPushButton* bouton_;
    NoteLine* note_;
    QListWidget* resultat_;
    QString toutafficher_;
    QString cherches_;           ///< the words of the last search
    QElapsedTimer depuislignes_; ///< since the result was painted
    QElapsedTimer depuisclic_;   ///< since a line was clicked
};

} // namespace velm
