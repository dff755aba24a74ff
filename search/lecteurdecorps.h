#pragma once
// The body search: rich text is decoded straight from the row, the private markup left in it, and searched as the rich
// text control does. Where the base holds the folded text of a body, that rules out most of the bodies beforehand; what
// it lets through is proved on the body itself, and where it is missing or stale the body alone decides.
#include "platform/engine/rowreader.h"
#include "search/criteres.h"

#include <QByteArray>

namespace velm {

/// For one thread, on a base of that thread. Never ends in a run-time error.
class LecteurDeCorps final : public CorpsCherche {
public:
    LecteurDeCorps(const Database& base, const CriteresLus& criteres);

    std::optional<bool> contient(qint64 rangee, int texte) override;
    /// Nothing of the last document is needed any more.
    void relache();

private:
    struct Cherche {
        QString texte;
        QByteArray plie;
        FindOptions options;
    };
    void commence(qint64 rangee);
    bool litcorps();
    bool prouve(const Cherche& cherche, qsizetype place);

    RowReader plies_;
    RowReader contenus_;
    RowReader rangees_; ///< bases that hold the bodies among the short fields
    std::array<Cherche, 2> cherches_;
    static constexpr qint64 aucune = -1;
    qint64 rangee_ = aucune;
    QByteArrayView plie_;
    bool apli_ = false;
    QByteArrayView contenu_;
    bool lu_ = false;
    QString texte_;
    bool decode_ = false;
};

} // namespace velm
