#pragma once
// The band over the tabs of the search form: the bar of the collections, and the buttons that press or release all of
// them. They stand beside the bar, or below it where the form is too narrow for both.
#include <QWidget>

class QBoxLayout;

namespace velm {

class BandeCollections final : public QWidget {
    Q_OBJECT

public:
    /// It takes the widgets over.
    BandeCollections(QWidget* etiquette, QWidget* barre, const QList<QWidget*>& boutons, QWidget* parent);

    QSize minimumSizeHint() const override;

protected:
    void resizeEvent(QResizeEvent* evenement) override;

private:
    int besoin() const;

    QBoxLayout* disposition_;
    QBoxLayout* gauche_;
    QBoxLayout* droite_;
};

} // namespace velm
