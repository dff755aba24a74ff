#pragma once
// A search without a window: everything that the engines work with, and the list that they fill.
#include "core/texte.h"
#include "outil/sortie.h"
#include "search/recherche.h"

#include <QJsonObject>

namespace velm::outil {

/// Answers the question about many documents: all of them are shown, as nobody named a limit.
class SansQuestions final : public Dialogues {
public:
    using Dialogues::message;
    Bouton message(const Message&) override { return Bouton::Non; }
    std::optional<QString> openFile(const ChoixFichier&) override { return std::nullopt; }
    std::optional<QString> saveFile(const ChoixFichier&) override { return std::nullopt; }
    std::optional<QString> chooseFolder(const QString&, const QString&) override { return std::nullopt; }
};

class Banc {
public:
    explicit Banc(Contexte& contexte)
        : contexte_(contexte),
          liste_([&contexte](Texte lequel) { return contexte.texte(lequel); }), atelier_{corpus,
                                                                                         liste_,
                                                                                         sablier_,
                                                                                         dialogues_,
                                                                                         cession_,
                                                                                         [&contexte](int id) {
                                                                                             return contexte.texte(id);
                                                                                         },
                                                                                         [](const QString&) {}} {}

    const Atelier& atelier() const { return atelier_; }

    ListeSelection& liste() { return liste_; }
    QJsonObject json() const;
    /// The lines, the documents and their number; or the object, with the lines in it.
    void ecrit(const QStringList& lignes, bool enjson) const;

    Corpus corpus;

private:
    Contexte& contexte_;
    ListeSelection liste_;
    SablierMuet sablier_;
    SansQuestions dialogues_;
    Cession cession_;
    Atelier atelier_;
};

} // namespace velm::outil
