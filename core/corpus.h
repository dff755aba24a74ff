#pragma once
// The collection's base: one database and eight recordsets, shared by everybody from start to exit. Each user sets the
// index just before its seek, and finishes a walk before it gives control back.
#include "core/cle.h"
#include "core/notice.h"
#include "platform/engine/recordset.h"

#include <QHash>
#include <QStringView>

#include <optional>

namespace velm {

class Corpus {
public:
    Corpus();
    ~Corpus();
    Corpus(const Corpus&) = delete;
    Corpus& operator=(const Corpus&) = delete;

    /// Opens the base at a path: shared first, then exclusive and read-only. No table is opened yet.
    OpenError connecte(const QString& chemin);
    /// Why the last attempt failed.
    struct Echec {
        Obstacle kind = Obstacle::None;
        QString words;
    };
    const Echec& echec() const { return echec_; }
    bool connecte() const { return base_ != nullptr; }

    /// Opens the eight tables in their order. A missing one is not noticed here: its first use is a run-time error.
    void ouvretables();
    /// Closes tables and base; `liens` is left to the closing of the base. Closing twice raises nothing.
    void fermebase();

    /// Which of the two attempts succeeded: false when the base was opened read-only.
    bool updatable() const;
    QString chemin() const;

    Recordset& donnees() const { return table(donnees_, u"données"); }
    Recordset& arborescences() const { return table(arborescences_, u"arborescences"); }
    Recordset& parametres() const { return table(parametres_, u"paramètres"); }
    Recordset& motcles() const { return table(motcles_, u"motclés"); }
    Recordset& typedocument() const { return table(typedocument_, u"typedocument"); }
    Recordset& liens() const { return table(liens_, u"liens"); }
    Recordset& dico() const { return table(dico_, u"dico"); }
    Recordset& generelien() const { return table(generelien_, u"generelien"); }
    /// For snapshots from a query text.
    Database& base() const;

    /// The short fields of a document; nothing when there is none of that key. Its body is not read. Like corps() and
    /// rangee() it moves the current row of `données` and leaves its index at primarykey.
    std::optional<Notice> document(const Cle& cle) const;
    /// The body of a document as stored; nothing when there is no such document.
    std::optional<QByteArray> corps(const Cle& cle) const;
    /// `données` on the row of a document, for walks over many that want a field or two; null when there is none.
    const Recordset* rangee(const Cle& cle) const;

    /// Number of documents of a collection, from the packed text of `paramètres`; 0 for a code that is none of the
    /// eleven.
    qint64 compterarticles(QStringView code) const;
    /// The same, counted: of a collection's documents that are there. All collections are counted at the first question
    /// of a base, on an index; 0 for a code that is none, and where the base cannot tell.
    qint64 nombrededocuments(QStringView code) const;

    /// What the publisher calls the collection; empty when the base does not tell.
    QString titre() const;

private:
    using Table = std::unique_ptr<Recordset>;
    Recordset& table(const Table& table, QStringView nom) const;
    QHash<QString, qint64> compte() const;
    std::unique_ptr<Database> base_;
    Echec echec_;
    mutable std::optional<QHash<QString, qint64>> nombres_; ///< of documents, by code, once they were asked for
    Table donnees_, arborescences_, parametres_, motcles_, typedocument_, liens_, dico_, generelien_;
};

} // namespace velm
