#pragma once
// A base to search and all that a search works with: the base that VELM_BASE names, else an invented one.
#include "collection/collection.h"
#include "search/recherche.h"

#include <QTemporaryDir>

#include <cstdio>
#include <cstdlib>

namespace velm {

/// No question holds a measure up.
class SansQuestions final : public Dialogues {
public:
    using Dialogues::message;
    Bouton message(const Message&) override { return Bouton::Non; }
    std::optional<QString> openFile(const ChoixFichier&) override { return std::nullopt; }
    std::optional<QString> saveFile(const ChoixFichier&) override { return std::nullopt; }
    std::optional<QString> chooseFolder(const QString&, const QString&) override { return std::nullopt; }
};

struct BaseDeRecherche {
    explicit BaseDeRecherche(const OptionsSynthese& inventee) {
        QString chemin = qEnvironmentVariable("VELM_BASE");
        if (chemin.isEmpty()) {
            chemin = dossier.filePath(QStringLiteral("velm2000.dat"));
            if (!synthese(inventee, chemin).faite())
                abandonne();
        }
        if (corpus.connecte(chemin) != OpenError::None)
            abandonne();
        corpus.ouvretables();
    }
    [[noreturn]] static void abandonne() {
        std::fputs("no base to search\n", stderr);
        std::exit(1);
    }

    QTemporaryDir dossier;
    Corpus corpus;
    ListeSelection selection{[](int) { return QString(); }};
    SablierMuet sablier;
    SansQuestions dialogues;
    Cession cession;
    Atelier atelier{
        corpus, selection, sablier, dialogues, cession, [](int) { return QString(); }, [](const QString&) {}};
};

} // namespace velm
