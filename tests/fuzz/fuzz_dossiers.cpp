// Stores of dossiers of any content, on the disk, and all that the window does with one: the tree loaded and saved, a
// dossier listed and changed, the store checked and repaired. An input is a store, or a list of changes to a sound one.
#include "core/schemas.h"
#include "dossiers/arbredossiers.h"
#include "dossiers/echangedossiers.h"
#include "dossiers/lignesdossiers.h"
#include "platform/base/failure.h"
#include "reserve.h"

#include <QFile>
#include <QTemporaryDir>

#include <cstdint>
#include <cstdlib>

namespace {

using namespace Qt::Literals::StringLiterals;
using namespace velm;

struct Ended {};

void require(bool held) {
    if (!held)
        std::abort();
}

/// Small pages make most bytes of the store structure.
QByteArray makeSample(const QString& path) {
    {
        const auto made = Database::create(path, dossiersSchema());
        require(made.database != nullptr);
        TableWriter numbers(*made.database, u"paramètres"_s, {u"dernoarborescence"_s});
        require(numbers.add({4}) && numbers.finish());
        TableWriter tree(*made.database, u"arborescences"_s,
                         {u"numerodutype"_s, u"dépendance"_s, u"ordre"_s, u"typededonnées"_s, u"nbarticles"_s});
        require(tree.add({1, 0, 1, u"Baux"_s, 2}) && tree.add({2, 1, 2, u"Loyers"_s, 1}) &&
                tree.add({3, 2, 3, u"1998"_s, 0}) && tree.add({4, 0, 4, u"Veille"_s, 0}) && tree.finish());
        TableWriter items(*made.database, u"données"_s,
                          {u"arborescence"_s, u"noordre"_s, u"référence"_s, u"numart"_s, u"titre"_s, u"positiondébut"_s,
                           u"positionfin"_s});
        require(items.add({1, 1, u"CO"_s, u"000001"_s, u"Un"_s, 0, 0}) &&
                items.add({1, 2, u"CO"_s, u"000002"_s, u"Deux"_s, 5, 9}) &&
                items.add({2, 1, u"JP"_s, u"000003"_s, u"Trois"_s, 0, 0}) && items.finish());
        require(made.database->execute(u"PRAGMA page_size=512"_s) && made.database->execute(u"VACUUM"_s));
    }
    QFile file(path);
    require(file.open(QIODevice::ReadOnly));
    return file.readAll();
}

struct Ground {
    QTemporaryDir folder;
    QString path = folder.filePath(u"dossiers.dat"_s);
    QByteArray sample;

    Ground() {
        fuzz::useReserve();
        setRuntimeErrorHandler([](const RuntimeFailure&) { throw Ended(); });
        sample = makeSample(path);
    }
};

/// What one use changes is a part of the input of the next.
class Use {
public:
    explicit Use(const QString& path) { store_.ouvremagasin(path); }
    void all(unsigned choice) {
        if (store_.dossiersindisponibles())
            return;
        lignesdesdossiers(store_.dbdossiers());
        if (choice % 4 == 0)
            Reparation::verifie(store_.dbdossiers());
        if (choice % 4 == 1)
            Reparation::repare(store_);
        if (store_.dossiersindisponibles())
            return;
        tree_.litprochainnumero();
        tree_.chargearbre();
        tree_.toutdevelopper();
        change(choice / 4);
    }

private:
    void change(unsigned choice) {
        const int node = nodes_.child(nodes_.childAt(0, 0));
        items_.clear();
        content_.liste(node == 0 ? 1 : tree_.numero(node));
        QString text = u"Titre"_s;
        switch (choice % 6) {
        case 0:
            tree_.ajoute(nodes_.childAt(0, 0), u"Neuf"_s);
            tree_.Sauvearbre();
            break;
        case 1:
            if (items_.count() > 0)
                content_.renomme(1, text);
            break;
        case 2:
            if (items_.count() > 0 && node != 0)
                content_.supprime(1, tree_.numero(node));
            break;
        case 3:
            if (items_.count() > 1)
                content_.echange(1, 2);
            break;
        case 4:
            importedossier(store_, nodes_, tree_, content_, fichierdudossier(u"Reçu"_s, items_));
            break;
        default:
            if (node != 0)
                tree_.marquersuppression(node, true);
            tree_.Sauvearbre();
        }
    }

    SablierMuet pointer_;
    Magasin store_;
    TreeNodes nodes_;
    ListItems items_;
    ArbreDossiers tree_{store_, nodes_, pointer_, u"Mes dossiers"_s};
    ContenuDossier content_{store_, items_, u"extrait"_s};
};

} // namespace

/// A byte chooses the use; the rest is a store, or else a list of changes to the sample: place (2 bytes) and new value,
/// over and over.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static const Ground ground;
    if (size < 1)
        return 0;
    const QByteArrayView rest(data + 1, static_cast<qsizetype>(size) - 1);
    QByteArray bytes = rest.startsWith("SQLite format 3") ? rest.toByteArray() : ground.sample;
    if (!rest.startsWith("SQLite format 3")) {
        for (qsizetype i = 0; i + 3 <= rest.size(); i += 3) {
            const auto at = static_cast<unsigned char>(rest[i]) << 8 | static_cast<unsigned char>(rest[i + 1]);
            bytes[at % bytes.size()] = rest[i + 2];
        }
    }
    QFile file(ground.path);
    require(file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size());
    file.close();
    try {
        Use(ground.path).all(data[0]);
    } catch (const Ended&) {
        // Damage that is met ends in a run-time error; what it leaves must stand its own closing.
    }
    return 0;
}
