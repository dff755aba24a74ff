#pragma once
// The block of the panel that looks words up in the window's collection.
#include <QWidget>

#include <functional>

class QLineEdit;
class QListWidget;
class QPushButton;

namespace velm {

class Etiquette;

class BlocRecherche final : public QWidget {
    Q_OBJECT

public:
    BlocRecherche(const std::function<QString(int)>& texte, QWidget* fenetre);

    QLineEdit* Textedico() const { return mots_; }
    QListWidget* resultat() const { return resultat_; }

protected:
    void resizeEvent(QResizeEvent* evenement) override;
    void changeEvent(QEvent* evenement) override;

private:
    void moveblocrecherche();

    Etiquette* etiquette_;
    QLineEdit* mots_;
    QPushButton* bouton_;
    QListWidget* resultat_;
};

} // namespace velm
