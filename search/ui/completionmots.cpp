#include "search/ui/completionmots.h"

#include "platform/widgets/look/popuprows.h"
#include "search/motscommencant.h"

#include <QAbstractItemView>
#include <QCompleter>
#include <QKeyEvent>
#include <QLineEdit>
#include <QStringListModel>

namespace velm {

CompletionMots::CompletionMots(QLineEdit* ligne, Mots mots, QString separateurs, const QString& nom)
    : QObject(ligne), ligne_(ligne), mots_(std::move(mots)), separateurs_(std::move(separateurs)),
      modele_(new QStringListModel(this)), liste_(new QCompleter(modele_, this)) {
    liste_->setCompletionMode(QCompleter::UnfilteredPopupCompletion);
    liste_->setWidget(ligne_);
    liste_->setMaxVisibleItems(plusdemots);
    liste_->popup()->setAccessibleName(nom);
    // Before the completer's own: Return in the list takes the word and does not search.
    liste_->popup()->installEventFilter(this);
    attente_.setSingleShot(true);
    attente_.setInterval(pause);
    connect(ligne_, &QLineEdit::textEdited, this, [this] {
        // An open list stays where it is until the next one, but what was chosen in it was meant for another text.
        liste_->popup()->selectionModel()->clear();
        attente_.start();
    });
    connect(ligne_, &QLineEdit::returnPressed, this, &CompletionMots::renonce);
    connect(&attente_, &QTimer::timeout, this, &CompletionMots::propose);
    connect(liste_, qOverload<const QString&>(&QCompleter::activated), this, &CompletionMots::prend);
}

void CompletionMots::renonce() {
    attente_.stop();
    liste_->popup()->hide();
}

bool CompletionMots::montree() const {
    return liste_->popup()->isVisible();
}

void CompletionMots::propose() {
    const auto mot =
        ligne_->hasFocus() ? mottape(ligne_->text(), ligne_->cursorPosition(), separateurs_) : std::nullopt;
    const QStringList mots = mot ? mots_(mot->texte, plusdemots) : QStringList();
    if (mots.isEmpty()) {
        liste_->popup()->hide();
        return;
    }
    modele_->setStringList(mots);
    liste_->complete();
    cutToWholeRows(*liste_->popup(), *liste_->popup(), *ligne_);
    // A list that takes the focus makes its first row the current one: nothing is chosen yet.
    liste_->popup()->selectionModel()->clear();
}

void CompletionMots::prend(const QString& mot) {
    const auto tape = mottape(ligne_->text(), ligne_->cursorPosition(), separateurs_);
    if (!tape)
        return;
    // As typing would: it can be undone.
    ligne_->setSelection(static_cast<int>(tape->debut), static_cast<int>(tape->texte.size()));
    ligne_->insert(mot);
    attente_.stop();
}

bool CompletionMots::eventFilter(QObject* objet, QEvent* evenement) {
    if (evenement->type() != QEvent::KeyPress)
        return QObject::eventFilter(objet, evenement);
    const int touche = static_cast<QKeyEvent*>(evenement)->key();
    const bool prise = touche == Qt::Key_Return || touche == Qt::Key_Enter || touche == Qt::Key_Tab;
    const QModelIndex choisi = liste_->popup()->currentIndex();
    if (!prise || !liste_->popup()->selectionModel()->isSelected(choisi))
        return QObject::eventFilter(objet, evenement);
    liste_->popup()->hide();
    prend(choisi.data().toString());
    return true;
}

} // namespace velm
