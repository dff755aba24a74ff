#include "disqueenpanne.h"

#include <gtest/gtest.h>
#include <map>

namespace velm::test {
namespace {

struct Etat {
    int changements = 0;
    int pannes = 0;
    int quand = 0;
    int code = SQLITE_OK;
    bool ensuite = false;
};

Etat etatdudisque;
sqlite3_vfs* disquevrai = nullptr;
sqlite3_vfs disquefaux{};
/// Of the real disk: bases and their journals are of two kinds, which write by the same functions.
const sqlite3_io_methods* methodesvraies = nullptr;
std::map<const sqlite3_io_methods*, sqlite3_io_methods> methodesfausses;

/// What this change gives instead of being done; SQLITE_OK where it is done.
int panne() {
    ++etatdudisque.changements;
    const bool tombe =
        etatdudisque.quand > 0 && (etatdudisque.ensuite ? etatdudisque.changements >= etatdudisque.quand
                                                        : etatdudisque.changements == etatdudisque.quand);
    if (!tombe)
        return SQLITE_OK;
    ++etatdudisque.pannes;
    return etatdudisque.code;
}

int ecrit(sqlite3_file* fichier, const void* octets, int combien, sqlite3_int64 ou) {
    const int code = panne();
    return code != SQLITE_OK ? code : methodesvraies->xWrite(fichier, octets, combien, ou);
}

int coupe(sqlite3_file* fichier, sqlite3_int64 taille) {
    const int code = panne();
    return code != SQLITE_OK ? code : methodesvraies->xTruncate(fichier, taille);
}

/// Nothing is really forced: what is asked here is what the engine makes of a refusal.
int force(sqlite3_file* /*fichier*/, int /*comment*/) {
    return panne();
}

int ouvre(sqlite3_vfs* /*disque*/, sqlite3_filename nom, sqlite3_file* fichier, int comment, int* fait) {
    // What is only opened is no change.
    if ((comment & SQLITE_OPEN_CREATE) != 0 && (comment & SQLITE_OPEN_MAIN_DB) == 0) {
        if (panne() != SQLITE_OK) {
            fichier->pMethods = nullptr;
            return SQLITE_CANTOPEN;
        }
    }
    const int code = disquevrai->xOpen(disquevrai, nom, fichier, comment, fait);
    if (code != SQLITE_OK || fichier->pMethods == nullptr)
        return code;
    methodesvraies = fichier->pMethods;
    sqlite3_io_methods& fausses = methodesfausses[methodesvraies];
    fausses = *methodesvraies;
    fausses.xWrite = ecrit;
    fausses.xTruncate = coupe;
    fausses.xSync = force;
    fichier->pMethods = &fausses;
    return SQLITE_OK;
}

int efface(sqlite3_vfs* /*disque*/, const char* nom, int forcer) {
    return panne() != SQLITE_OK ? SQLITE_IOERR_DELETE : disquevrai->xDelete(disquevrai, nom, forcer);
}

} // namespace

DisqueEnPanne::DisqueEnPanne() {
    EXPECT_EQ(sqlite3_initialize(), SQLITE_OK);
    disquevrai = sqlite3_vfs_find(nullptr);
    disquefaux = *disquevrai;
    disquefaux.pNext = nullptr;
    disquefaux.zName = "disque en panne";
    disquefaux.xOpen = ouvre;
    disquefaux.xDelete = efface;
    etatdudisque = {};
    EXPECT_EQ(sqlite3_vfs_register(&disquefaux, 1), SQLITE_OK);
}

DisqueEnPanne::~DisqueEnPanne() {
    etatdudisque = {};
    sqlite3_vfs_unregister(&disquefaux);
    sqlite3_vfs_register(disquevrai, 1);
}

void DisqueEnPanne::tombe(int quand, int code, bool ensuite) {
    etatdudisque = {0, 0, quand, code, ensuite};
}

int DisqueEnPanne::changements() const {
    return etatdudisque.changements;
}

int DisqueEnPanne::pannes() const {
    return etatdudisque.pannes;
}

} // namespace velm::test
