#include "platform/system/ui/qtdialogues.h"

#include "platform/system/files.h"

#include <QAbstractButton>
#include <QApplication>
#include <QCheckBox>
#include <QDialogButtonBox>
#include <QDir>
#include <QFileDialog>
#include <QFileIconProvider>
#include <QFileInfo>
#include <QGridLayout>
#include <QHeaderView>
#include <QLabel>
#include <QListView>
#include <QMessageBox>
#include <QPushButton>
#include <QScreen>
#include <QSplitter>
#include <QStandardPaths>
#include <QStyle>
#include <QTreeView>

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

/// What the message itself calls a button: by what it does.
QString ownCaption(const Message& message, Bouton bouton) {
    if (bouton == Bouton::Oui || bouton == Bouton::Ok)
        return message.accord;
    const bool leaves = bouton == Bouton::Non || !message.boutons.testFlag(Bouton::Non);
    return leaves ? message.refus : QString();
}

void addButtons(QMessageBox& box, const Message& message, const Captions& captions) {
    for (const Pair& pair : answers) {
        if (message.boutons.testFlag(pair.bouton)) {
            QPushButton* const button = box.addButton(pair.standard);
            setCaption(button, pair.bouton, captions);
            if (const QString own = ownCaption(message, pair.bouton); !own.isEmpty())
                button->setText(own);
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

/// A short text stands in the middle of its picture, a long one begins beside it; the buttons end at the right edge.
/// Where there is no picture there is no room for one either.
void arrange(QMessageBox& box) {
    constexpr int margin = 12;
    constexpr int rowGap = 16;
    auto* const grid = qobject_cast<QGridLayout*>(box.layout());
    auto* const label = box.findChild<QLabel*>(u"qt_msgbox_label"_s);
    auto* const buttons = box.findChild<QDialogButtonBox*>();
    if (grid == nullptr || label == nullptr || buttons == nullptr)
        return;
    while (grid->count() > 0)
        delete grid->takeAt(0);
    auto* const picture = box.findChild<QLabel*>(u"qt_msgboxex_icon_label"_s);
    const bool seen = picture != nullptr && !picture->pixmap().isNull();
    if (seen)
        grid->addWidget(picture, 0, 0, Qt::AlignTop);
    const int column = seen ? 1 : 0;
    grid->addWidget(label, 0, column);
    grid->setColumnStretch(column, 1);
    if (box.checkBox() != nullptr)
        grid->addWidget(box.checkBox(), 1, column, Qt::AlignLeft);
    grid->addWidget(buttons, 2, 0, 1, column + 1);
    grid->setContentsMargins(margin, margin, margin, margin);
    grid->setHorizontalSpacing(margin);
    grid->setVerticalSpacing(rowGap);
    label->setIndent(0);
    label->setContentsMargins(0, 0, 0, 0);
    label->setAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    label->setMinimumHeight(seen ? picture->sizeHint().height() : 0);
    buttons->setCenterButtons(false);
}

/// Names what lies in a folder in the program's words. Asked from another thread.
class KindsProvider final : public QFileIconProvider {
public:
    explicit KindsProvider(SortesFichier kinds) : kinds_(std::move(kinds)) {}

    QString type(const QFileInfo& info) const override {
        if (info.isRoot())
            return kinds_.lecteur;
        if (info.isDir())
            return kinds_.dossier;
        const QString suffix = info.suffix().toUpper();
        return suffix.isEmpty() ? kinds_.sansextension : QString(kinds_.fichier).replace(u"%1"_s, suffix);
    }

private:
    const SortesFichier kinds_;
};

/// Where a dialog begins that was not told where.
QString firstFolder(const QString& last) {
    const QString documents = QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation);
    for (const QString& folder : {last, documents}) {
        if (!folder.isEmpty() && QDir(folder).exists())
            return folder;
    }
    return QDir::homePath();
}

/// Names have the room, the other columns what they need: nothing of them is cut, and nothing scrolls sideways. Where
/// the platform has a dialog of its own there is no such list.
void layOutColumns(const QFileDialog& dialog) {
    const auto* const list = dialog.findChild<QTreeView*>(u"treeView"_s);
    if (list == nullptr)
        return;
    QHeaderView* const header = list->header();
    header->setStretchLastSection(false);
    header->setResizeContentsPrecision(0); // what is seen
    header->setSectionResizeMode(QHeaderView::ResizeToContents);
    header->setSectionResizeMode(0, QHeaderView::Stretch);
}

/// The places beside the list have the width of their names, up to a third of the dialog, also where another was kept.
void layOutPlaces(const QFileDialog& dialog) {
    auto* const parts = dialog.findChild<QSplitter*>(u"splitter"_s);
    const auto* const places = dialog.findChild<QListView*>(u"sidebar"_s);
    if (parts == nullptr || places == nullptr)
        return;
    constexpr int air = 16; // behind the longest name
    const int wanted = places->sizeHintForColumn(0) + 2 * places->frameWidth() + air;
    const int width = std::min(wanted, dialog.width() / 3);
    parts->setSizes({width, dialog.width() - width});
}

void prepare(QFileDialog& dialog, const ChoixFichier& choix, const QString& last) {
    QStringList filters;
    for (const Filtre& filtre : lisfiltres(choix.filtre)) {
        // Qt takes the last pair of brackets for the patterns, and shows what stands before it.
        filters.append(filtre.libelle + u" ("_s + filtre.motifs.join(u' ') + u')');
    }
    dialog.setOption(QFileDialog::HideNameFilterDetails);
    if (!filters.isEmpty())
        dialog.setNameFilters(filters);
    dialog.setDefaultSuffix(choix.extension);
    dialog.setDirectory(choix.dossier.isEmpty() ? firstFolder(last) : choix.dossier);
    if (!choix.nom.isEmpty())
        dialog.selectFile(choix.nom);
}

/// The number of the filter, from 1. The dialog names it as the user sees it, or in full, as the platform's own do.
int filterInForce(const QFileDialog& dialog) {
    const QString named = dialog.selectedNameFilter();
    const QStringList filters = dialog.nameFilters();
    const auto place = std::find_if(filters.begin(), filters.end(), [&named](const QString& filter) {
        return filter == named || filter.startsWith(named + u" ("_s);
    });
    return place == filters.end() ? 1 : 1 + static_cast<int>(place - filters.begin());
}

/// Where the screen is low the list of files gives way, not the buttons below it.
void keepOnScreen(QFileDialog& dialog) {
    const int title = dialog.style()->pixelMetric(QStyle::PM_TitleBarHeight);
    dialog.resize(dialog.size().boundedTo(dialog.screen()->availableSize() - QSize(0, title)));
}

} // namespace

QtDialogues::QtDialogues(std::function<void(int contexte)> aide, std::function<bool()> aidela)
    : aide_(std::move(aide)), aidela_(std::move(aidela)) {}

Bouton QtDialogues::message(const Message& message) {
    QMessageBox box(iconOf(message.icone), message.titre, message.texte, QMessageBox::NoButton, ownerOfBoxes());
    box.setObjectName(u"message"_s);
    // The texts are texts: a name with "<" in it is no markup.
    box.setTextFormat(Qt::PlainText);
    addButtons(box, message, captions_);
    if (box.buttons().isEmpty())
        box.addButton(QMessageBox::Ok);
    if (message.boutons.testFlag(Bouton::Aide) && aide_ && (!aidela_ || aidela_()))
        addHelp(box, message.contexteAide, aide_, captions_);
    if (const auto escape = boutonAbandon(message.boutons); escape != Bouton::Ok)
        box.setEscapeButton(escape == Bouton::Annuler ? QMessageBox::Cancel : QMessageBox::No);
    if (!message.option.isEmpty())
        box.setCheckBox(new QCheckBox(message.option, &box));
    arrange(box);
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

std::optional<QString> QtDialogues::run(QFileDialog& dialog, const ChoixFichier& choix) {
    if (!provider_ && kinds_)
        provider_ = std::make_shared<KindsProvider>(kinds_());
    if (provider_)
        dialog.setIconProvider(provider_.get());
    prepare(dialog, choix, lastFolder_);
    layOutColumns(dialog);
    keepOnScreen(dialog);
    layOutPlaces(dialog);
    raiseAboveOwner(dialog);
    if (dialog.exec() != QDialog::Accepted)
        return std::nullopt;
    // Above all drives there is a place that has no name and holds no file.
    const QString chosen = dialog.selectedFiles().value(0);
    if (chosen.isEmpty())
        return std::nullopt;
    lastFolder_ = QFileInfo(chosen).absolutePath();
    if (choix.filtrechoisi)
        *choix.filtrechoisi = filterInForce(dialog);
    return chosen;
}

std::optional<QString> QtDialogues::openFile(const ChoixFichier& choix) {
    QFileDialog dialog(ownerOfBoxes(), choix.titre);
    dialog.setFileMode(QFileDialog::ExistingFile);
    return run(dialog, choix);
}

std::optional<QString> QtDialogues::saveFile(const ChoixFichier& choix) {
    QFileDialog dialog(ownerOfBoxes(), choix.titre);
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.setFileMode(QFileDialog::AnyFile);
    dialog.setOption(QFileDialog::DontConfirmOverwrite, !choix.demanderemplacement);
    return run(dialog, choix);
}

std::optional<QString> QtDialogues::chooseFolder(const QString& titre, const QString& dossier) {
    QFileDialog dialog(ownerOfBoxes(), titre);
    dialog.setFileMode(QFileDialog::Directory);
    dialog.setOption(QFileDialog::ShowDirsOnly);
    return run(dialog, {{}, dossier, {}, {}, {}});
}

} // namespace velm
