#include "platform/system/ui/qtdialogues.h"

#include "platform/system/files.h"

#include <QAbstractButton>
#include <QApplication>
#include <QCheckBox>
#include <QFileDialog>
#include <QMessageBox>
#include <QPushButton>

#include <algorithm>
#include <array>
#include <utility>

namespace velm {

using namespace Qt::Literals::StringLiterals;

namespace {

struct Pair {
    Bouton bouton;
    QMessageBox::StandardButton standard;
};
constexpr std::array<Pair, 4> answers = {{{Bouton::Ok, QMessageBox::Ok},
                                          {Bouton::Annuler, QMessageBox::Cancel},
                                          {Bouton::Oui, QMessageBox::Yes},
                                          {Bouton::Non, QMessageBox::No}}};

QMessageBox::Icon iconOf(Icone icone) {
    switch (icone) {
    case Icone::Question:
        return QMessageBox::Question;
    case Icone::Information:
        return QMessageBox::Information;
    case Icone::Exclamation:
        return QMessageBox::Warning;
    case Icone::Stop:
        return QMessageBox::Critical;
    case Icone::Aucune:
        break;
    }
    return QMessageBox::NoIcon;
}

using Captions = std::function<QString(Bouton)>;

void setCaption(QPushButton* button, Bouton bouton, const Captions& captions) {
    const QString caption = captions ? captions(bouton) : QString();
    if (!caption.isEmpty())
        button->setText(caption);
}

void addButtons(QMessageBox& box, const Message& message, const Captions& captions) {
    for (const Pair& pair : answers) {
        if (message.boutons.testFlag(pair.bouton)) {
            QPushButton* const button = box.addButton(pair.standard);
            setCaption(button, pair.bouton, captions);
            // Without a wish it is the one that agrees, wherever the platform puts its buttons.
            const bool agrees = pair.bouton == Bouton::Ok || pair.bouton == Bouton::Oui;
            const bool first = message.defaut == Bouton::Aucun && agrees && !box.defaultButton();
            if (message.defaut == pair.bouton || first)
                box.setDefaultButton(button);
        }
    }
}

/// The help button leaves the box open: its click is taken away from the box, which would close.
void addHelp(QMessageBox& box, int contexte, const std::function<void(int)>& aide, const Captions& captions) {
    QPushButton* const button = box.addButton(QMessageBox::Help);
    setCaption(button, Bouton::Aide, captions);
    QObject::disconnect(button, &QPushButton::clicked, nullptr, nullptr);
    QObject::connect(button, &QPushButton::clicked, &box, [aide, contexte] { aide(contexte); });
}

/// A box belongs to the window that is at work, and to the one that is there when none is yet.
QWidget* ownerOfBoxes() {
    if (QWidget* const active = QApplication::activeWindow())
        return active;
    const QWidgetList windows = QApplication::topLevelWidgets();
    const auto shown = std::find_if(windows.begin(), windows.end(), [](const QWidget* window) {
        return window->isVisible() && (window->windowType() == Qt::Window || window->windowType() == Qt::SplashScreen);
    });
    return shown == windows.end() ? nullptr : *shown;
}

/// What is asked while a window stays above all others, as a splash does, has to stand there as well.
void raiseAboveOwner(QDialog& box) {
    const QWidget* const owner = box.parentWidget();
    if (owner != nullptr && owner->windowFlags().testFlag(Qt::WindowStaysOnTopHint))
        box.setWindowFlag(Qt::WindowStaysOnTopHint);
}

std::optional<QString> run(QFileDialog& dialog) {
    raiseAboveOwner(dialog);
    if (dialog.exec() != QDialog::Accepted)
        return std::nullopt;
    // Above all drives there is a place that has no name and holds no file.
    const QString chosen = dialog.selectedFiles().value(0);
    return chosen.isEmpty() ? std::nullopt : std::optional(chosen);
}

void prepare(QFileDialog& dialog, const ChoixFichier& choix) {
    QStringList filters;
    for (const Filtre& filtre : lisfiltres(choix.filtre)) {
        // Qt takes the last pair of brackets for the patterns and shows only what stands before it.
        const qsizetype bracket = filtre.libelle.lastIndexOf(u" ("_s);
        const QString label = bracket > 0 ? filtre.libelle.first(bracket) : filtre.libelle;
        filters.append(label + u" ("_s + filtre.motifs.join(u' ') + u')');
    }
    if (!filters.isEmpty())
        dialog.setNameFilters(filters);
    dialog.setDefaultSuffix(choix.extension);
    if (!choix.dossier.isEmpty())
        dialog.setDirectory(choix.dossier);
    if (!choix.nom.isEmpty())
        dialog.selectFile(choix.nom);
}

} // namespace

QtDialogues::QtDialogues(std::function<void(int contexte)> aide) : aide_(std::move(aide)) {}

Bouton QtDialogues::message(const Message& message) {
    QMessageBox box(iconOf(message.icone), message.titre, message.texte, QMessageBox::NoButton, ownerOfBoxes());
    box.setObjectName(u"message"_s);
    // The texts are texts: a name with "<" in it is no markup.
    box.setTextFormat(Qt::PlainText);
    addButtons(box, message, captions_);
    if (box.buttons().isEmpty())
        box.addButton(QMessageBox::Ok);
    if (message.boutons.testFlag(Bouton::Aide) && aide_)
        addHelp(box, message.contexteAide, aide_, captions_);
    if (const auto escape = boutonAbandon(message.boutons); escape != Bouton::Ok)
        box.setEscapeButton(escape == Bouton::Annuler ? QMessageBox::Cancel : QMessageBox::No);
    if (!message.option.isEmpty())
        box.setCheckBox(new QCheckBox(message.option, &box));
    raiseAboveOwner(box);
    box.exec();
    if (box.checkBox() && message.optioncochee)
        *message.optioncochee = box.checkBox()->isChecked();
    const QMessageBox::StandardButton pressed = box.standardButton(box.clickedButton());
    for (const Pair& pair : answers) {
        if (pressed == pair.standard)
            return pair.bouton;
    }
    return boutonAbandon(message.boutons);
}

std::optional<QString> QtDialogues::openFile(const ChoixFichier& choix) {
    QFileDialog dialog(ownerOfBoxes(), choix.titre);
    dialog.setFileMode(QFileDialog::ExistingFile);
    prepare(dialog, choix);
    return run(dialog);
}

std::optional<QString> QtDialogues::saveFile(const ChoixFichier& choix) {
    QFileDialog dialog(ownerOfBoxes(), choix.titre);
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.setFileMode(QFileDialog::AnyFile);
    dialog.setOption(QFileDialog::DontConfirmOverwrite, !choix.demanderemplacement);
    prepare(dialog, choix);
    return run(dialog);
}

std::optional<QString> QtDialogues::chooseFolder(const QString& titre, const QString& dossier) {
    QFileDialog dialog(ownerOfBoxes(), titre, dossier);
    dialog.setFileMode(QFileDialog::Directory);
    dialog.setOption(QFileDialog::ShowDirsOnly);
    return run(dialog);
}

} // namespace velm
