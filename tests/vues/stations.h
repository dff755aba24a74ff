#pragma once
// The stations of the walk: each goes on where the one before it has ended, and leaves the program as the next one
// wants it.
#include "tests/vues/guide.h"

namespace velm::vues {

/// Documents of the sample that show something of their own; another collection may lack some.
inline const QString sampleArticle = QStringLiteral("CO000088"); ///< cites, and is cited
inline const QString sampleTable = QStringLiteral("DI000008");
inline const QString sampleTinted = QStringLiteral("JP000003");
inline const QString sampleLetter = QStringLiteral("LT000022");

// ---- the frame
void withoutBase(Guide& guide);
void splash(Guide& guide);
void firstStart(Guide& guide);
void desk(Guide& guide);
void firstClick(Guide& guide);
void menus(Guide& guide);
void popups(Guide& guide);
void manyWindows(Guide& guide);
void bars(Guide& guide);
void smallWindows(Guide& guide);
void fileQuestions(Guide& guide);
void end(Guide& guide);

// ---- document windows
void documents(Guide& guide);
void panels(Guide& guide);
void wordsInPanel(Guide& guide);
void links(Guide& guide);
void finding(Guide& guide);
void properties(Guide& guide);

// ---- searches
void searchForm(Guide& guide);
void results(Guide& guide);
void listOfResults(Guide& guide);

// ---- lists
void index(Guide& guide);
void chronology(Guide& guide);
void numbers(Guide& guide);
void keywords(Guide& guide);

// ---- what leaves the program
void printing(Guide& guide);

// ---- what the user keeps
void dossiers(Guide& guide);

} // namespace velm::vues
