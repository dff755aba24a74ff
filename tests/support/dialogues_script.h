#pragma once
// The user of a test: answers boxes and file dialogs from a script and remembers what was asked. Nothing blocks; a
// question that the script does not foresee fails the test and is answered as if the box had been closed.
#include "platform/system/dialogues.h"

#include <deque>
#include <functional>
#include <gtest/gtest.h>
#include <vector>

namespace velm::test {

class DialoguesScript final : public Dialogues {
public:
    using Dialogues::message;

    /// Next answers, in order.
    std::deque<Bouton> answers;
    std::deque<std::optional<QString>> openFiles;
    std::deque<std::optional<QString>> saveFiles;
    std::deque<std::optional<QString>> folders;
    /// Whether the check boxes of boxes that have one are ticked, in order; unticked when there are no more.
    std::deque<bool> ticks;
    /// Happens under each box.
    std::function<void()> meanwhile;
    /// Boxes with nothing but an OK button need no answer in the script.
    bool acceptPlainBoxes = true;

    /// What was asked, in order.
    std::vector<Message> messages;
    std::vector<ChoixFichier> fileQuestions;

    /// The texts of all boxes so far.
    QStringList texts() const {
        QStringList all;
        for (const Message& m : messages)
            all.append(m.texte);
        return all;
    }

    Bouton message(const Message& message) override {
        messages.push_back(message);
        tick(message);
        if (meanwhile)
            meanwhile();
        if (answers.empty() && acceptPlainBoxes && message.boutons == Boutons(Bouton::Ok))
            return Bouton::Ok;
        if (answers.empty()) {
            ADD_FAILURE() << "no answer for the box: " << message.texte.toStdString();
            return boutonAbandon(message.boutons);
        }
        const Bouton answer = answers.front();
        answers.pop_front();
        EXPECT_TRUE(message.boutons.testFlag(answer)) << "no such button in the box: " << message.texte.toStdString();
        return answer;
    }

    std::optional<QString> openFile(const ChoixFichier& choix) override {
        fileQuestions.push_back(choix);
        return next(openFiles, "file to open");
    }

    std::optional<QString> saveFile(const ChoixFichier& choix) override {
        fileQuestions.push_back(choix);
        return next(saveFiles, "file to save");
    }

    std::optional<QString> chooseFolder(const QString& titre, const QString& dossier) override {
        fileQuestions.push_back({titre, dossier, {}, {}, {}});
        return next(folders, "folder");
    }

private:
    void tick(const Message& message) {
        if (message.option.isEmpty())
            return;
        const bool ticked = !ticks.empty() && ticks.front();
        if (!ticks.empty())
            ticks.pop_front();
        if (message.optioncochee)
            *message.optioncochee = ticked;
        // What it points to does not outlive the box.
        messages.back().optioncochee = nullptr;
    }

    static std::optional<QString> next(std::deque<std::optional<QString>>& from, const char* what) {
        if (from.empty()) {
            ADD_FAILURE() << "no answer for: " << what;
            return std::nullopt;
        }
        const bool chosen = from.front().has_value();
        const QString path = from.front().value_or(QString());
        from.pop_front();
        return chosen ? std::optional(path) : std::nullopt;
    }
};

} // namespace velm::test
