#include "core/corpus.h"

#include "core/schemas.h"
#include "platform/base/failure.h"
#include "platform/engine/rowreader.h"
#include "platform/text/ansi.h"
#include "platform/text/number.h"

namespace velm {

Corpus::Corpus() = default;

Corpus::~Corpus() {
    fermebase();
}

OpenError Corpus::connecte(const QString& chemin) {
    fermebase();
    auto ouverte = Database::open(chemin, OpenMode::Shared, corpusSchema());
    if (!ouverte.database)
        ouverte = Database::open(chemin, OpenMode::ExclusiveReadOnly, corpusSchema());
    base_ = std::move(ouverte.database);
    echec_ = {ouverte.obstacle, ouverte.message};
    return ouverte.error;
}

void Corpus::ouvretables() {
    Database& ouverte = base();
    donnees_ = ouverte.openTable(QStringLiteral("données"));
    arborescences_ = ouverte.openTable(QStringLiteral("arborescences"));
    parametres_ = ouverte.openTable(QStringLiteral("paramètres"));
    motcles_ = ouverte.openTable(QStringLiteral("motclés"));
    if (motcles_->usable())
        motcles_->setIndex(QStringLiteral("primarykey"));
    typedocument_ = ouverte.openTable(QStringLiteral("typedocument"));
    liens_ = ouverte.openTable(QStringLiteral("liens"));
    dico_ = ouverte.openTable(QStringLiteral("dico"));
    generelien_ = ouverte.openTable(QStringLiteral("generelien"));
}

void Corpus::fermebase() {
    motcles_.reset();
    parametres_.reset();
    arborescences_.reset();
    donnees_.reset();
    typedocument_.reset();
    dico_.reset();
    generelien_.reset();
    // `liens` has no closing of its own: it goes with the base.
    if (base_)
        base_->close();
    liens_.reset();
    base_.reset();
}

bool Corpus::updatable() const {
    return base_ && base_->updatable();
}

QString Corpus::chemin() const {
    return base_ ? base_->path() : QString();
}

Database& Corpus::base() const {
    if (!base_)
        runtimeError(Failure::Engine, {QStringLiteral("velm2000.dat")});
    return *base_;
}

Recordset& Corpus::table(const Table& table, QStringView nom) const {
    if (!table)
        runtimeError(Failure::MissingTable, {nom.toString()});
    return *table;
}

const Recordset* Corpus::rangee(const Cle& cle) const {
    Recordset& rs = donnees();
    rs.setIndex(QStringLiteral("primarykey"));
    rs.seek(Seek::Equal, cle.code, cle.numero);
    return rs.noMatch() ? nullptr : &rs;
}

std::optional<Notice> Corpus::document(const Cle& cle) const {
    const Recordset* rs = rangee(cle);
    if (!rs)
        return std::nullopt;
    const QString couleur = QStringLiteral("BackColor");
    return Notice{.titre = rs->text(QStringLiteral("titre")),
                  .motcle1 = rs->text(QStringLiteral("motclé1")),
                  .motcle2 = rs->text(QStringLiteral("motclé2")),
                  .motcle3 = rs->text(QStringLiteral("motclé3")),
                  .Source = rs->text(QStringLiteral("Source")),
                  .datetext = rs->text(QStringLiteral("Date")),
                  .datecreation = rs->text(QStringLiteral("datecreation")),
                  .datemodif = rs->text(QStringLiteral("datemodif")),
                  .typedocument = rs->text(QStringLiteral("typededocument")),
                  .numeroarborescence = rs->text(QStringLiteral("numeroarborescence")),
                  .couleur = rs->isNull(couleur) ? std::nullopt : std::optional(static_cast<int>(rs->number(couleur)))};
}

std::optional<QByteArray> Corpus::corps(const Cle& cle) const {
    const Recordset* rs = rangee(cle);
    return rs ? std::optional(rs->bytes(QStringLiteral("contenu"))) : std::nullopt;
}

qint64 Corpus::compterarticles(QStringView code) const {
    const qsizetype position = codestypes.indexOf(code) + 1;
    if (position <= 0 || code.isEmpty())
        return 0;
    Recordset& rs = parametres();
    rs.moveFirst();
    return static_cast<qint64>(val(QStringView(rs.text(QStringLiteral("nbarticles"))).mid(3 * position - 3, 6)));
}

QString Corpus::titre() const {
    if (!base_)
        return {};
    // A base may be older than the field, or damaged there: that ends nothing.
    RowReader parametres(*base_, QStringLiteral("paramètres"), {QStringLiteral("titre")});
    return parametres.read(1) == RowReader::Found::Row ? ansi::decode(parametres.bytes(0)).simplified() : QString();
}

} // namespace velm
