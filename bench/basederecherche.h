#pragma once
// A base to search: the one that VELM_BASE names, else an invented one.
#include "collection/collection.h"
#include "core/corpus.h"

#include <QTemporaryDir>

#include <cstdio>
#include <cstdlib>

namespace velm {

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
};

} // namespace velm
