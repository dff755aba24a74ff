#pragma once
// The boxes and file dialogs of the running program.
#include "platform/system/dialogues.h"

#include <functional>
#include <utility>

namespace velm {

/// The captions of standard buttons are Qt's own: the program loads their translation for the user's language.
class QtDialogues final : public Dialogues {
public:
    /// `aide` shows a page of the help file; without it boxes have no help button.
    explicit QtDialogues(std::function<void(int contexte)> aide = {});

    /// Captions of the buttons; where it gives none, Qt's own stand.
    void setCaptions(std::function<QString(Bouton)> captions) { captions_ = std::move(captions); }

    using Dialogues::message;
    Bouton message(const Message& message) override;
    std::optional<QString> openFile(const ChoixFichier& choix) override;
    std::optional<QString> saveFile(const ChoixFichier& choix) override;
    std::optional<QString> chooseFolder(const QString& titre, const QString& dossier) override;

private:
    std::function<void(int)> aide_;
    std::function<QString(Bouton)> captions_;
};

} // namespace velm
