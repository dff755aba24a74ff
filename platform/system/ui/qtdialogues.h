#pragma once
// The boxes and file dialogs of the running program.
#include "platform/system/dialogues.h"

#include <functional>
#include <memory>
#include <utility>

class QFileDialog;
class QFileIconProvider;

namespace velm {

/// The captions of standard buttons are Qt's own: the program loads their translation for the user's language.
class QtDialogues final : public Dialogues {
public:
    /// `aide` shows a page of the help file, `aidela` tells whether there is one now (without it there is). Without
    /// help, boxes have no help button.
    explicit QtDialogues(std::function<void(int contexte)> aide = {}, std::function<bool()> aidela = {});

    /// Captions of the buttons; where it gives none, Qt's own stand.
    void setCaptions(std::function<QString(Bouton)> captions) { captions_ = std::move(captions); }

    /// Words for the kinds of files; asked for at the first file dialog. Without them Qt's own stand.
    void setKinds(std::function<SortesFichier()> kinds) { kinds_ = std::move(kinds); }

    using Dialogues::message;
    Bouton message(const Message& message) override;
    std::optional<QString> openFile(const ChoixFichier& choix) override;
    std::optional<QString> saveFile(const ChoixFichier& choix) override;
    std::optional<QString> chooseFolder(const QString& titre, const QString& dossier) override;

private:
    std::optional<QString> run(QFileDialog& dialog, const ChoixFichier& choix);

    std::function<void(int)> aide_;
    std::function<bool()> aidela_;
    std::function<QString(Bouton)> captions_;
    std::function<SortesFichier()> kinds_;
    std::shared_ptr<QFileIconProvider> provider_; ///< outlives the dialogs, whose threads ask it
    QString lastFolder_;                          ///< where the last file or folder was chosen
};

} // namespace velm
