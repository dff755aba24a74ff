#pragma once
// A store in a folder of its own, and its tables as plain rows.
#include "core/schemas.h"
#include "dossiers/arbredossiers.h"
#include "dossiers/contenudossier.h"
#include "platform/text/number.h"
#include "tests/support/arret.h"

#include <QDir>
#include <QTemporaryDir>

#include <algorithm>
#include <gtest/gtest.h>
#include <vector>

namespace velm::test {

using namespace Qt::Literals::StringLiterals;

struct RangeeDossier {
    qint64 numero = 0;
    qint64 parent = 0;
    qint64 ordre = 0;
    QString nom;
    qint64 compte = 0;
    friend bool operator==(const RangeeDossier&, const RangeeDossier&) = default;
    friend void PrintTo(const RangeeDossier& r, std::ostream* os) {
        *os << r.numero << " below " << r.parent << " at " << r.ordre << " '" << r.nom.toStdString() << "' "
            << r.compte;
    }
};

struct RangeeElement {
    qint64 dossier = 0;
    qint64 place = 0;
    QString cle;
    QString titre;
    qint64 debut = 0;
    qint64 longueur = 0;
    friend bool operator==(const RangeeElement&, const RangeeElement&) = default;
    friend void PrintTo(const RangeeElement& r, std::ostream* os) {
        *os << r.cle.toStdString() << " in " << r.dossier << " at " << r.place << " '" << r.titre.toStdString() << "' "
            << r.debut << '+' << r.longueur;
    }
};

class MagasinTest : public testing::Test {
protected:
    void SetUp() override {
        ASSERT_TRUE(dossier_.isValid());
        const auto faite = Database::create(chemin(), dossiersSchema());
        ASSERT_TRUE(faite.database);
        TableWriter parametres(*faite.database, u"paramètres"_s, {u"dernoarborescence"_s});
        ASSERT_TRUE(parametres.add({0}) && parametres.finish());
    }
    void TearDown() override { magasin.fermedossiers(); }

    QString dossier() const { return dossier_.path(); }
    QString chemin() const { return dossier_.filePath(u"dossiers.dat"_s); }
    /// Opens the store with these rows in it; the last number is the greatest of them.
    void ouvre(const std::vector<RangeeDossier>& dossiers = {}, const std::vector<RangeeElement>& elements = {}) {
        magasin.ouvredossiers(dossier());
        ASSERT_FALSE(magasin.dossiersindisponibles());
        ASSERT_TRUE(magasin.dbdossiers().begin());
        qint64 dernier = 0;
        for (const RangeeDossier& r : dossiers) {
            ajoutedossier(r);
            dernier = std::max(dernier, r.numero);
        }
        for (const RangeeElement& r : elements)
            ajouteelement(r);
        Recordset& parametres = magasin.rsparametres();
        parametres.moveFirst();
        parametres.edit();
        parametres.setValue(u"dernoarborescence"_s, dernier);
        ASSERT_TRUE(parametres.update());
        ASSERT_TRUE(magasin.dbdossiers().commit());
    }
    void ajoutedossier(const RangeeDossier& r) {
        Recordset& t = magasin.rsarborescences();
        t.addNew();
        t.setValue(u"numerodutype"_s, r.numero);
        t.setValue(u"dépendance"_s, r.parent);
        t.setValue(u"ordre"_s, r.ordre);
        t.setValue(u"typededonnées"_s, r.nom);
        t.setValue(u"nbarticles"_s, r.compte);
        ASSERT_TRUE(t.update()) << t.lastError().toStdString();
    }
    void ajouteelement(const RangeeElement& r) {
        Recordset& t = magasin.rsdonnees();
        t.addNew();
        t.setValue(u"arborescence"_s, r.dossier);
        t.setValue(u"noordre"_s, r.place);
        t.setValue(u"référence"_s, r.cle.left(2));
        t.setValue(u"numart"_s, r.cle.mid(2));
        t.setValue(u"titre"_s, r.titre);
        t.setValue(u"positiondébut"_s, r.debut);
        t.setValue(u"positionfin"_s, r.longueur);
        ASSERT_TRUE(t.update()) << t.lastError().toStdString();
    }

    /// The rows in the order of their numbers.
    std::vector<RangeeDossier> dossiers() {
        std::vector<RangeeDossier> tous;
        Recordset& t = magasin.rsarborescences();
        t.setIndex(u"primarykey"_s);
        for (t.moveFirst(); !t.eof(); t.moveNext())
            tous.push_back({t.number(u"numerodutype"_s), t.number(u"dépendance"_s), t.number(u"ordre"_s),
                            t.text(u"typededonnées"_s), t.number(u"nbarticles"_s)});
        return tous;
    }
    std::vector<RangeeElement> elements() {
        std::vector<RangeeElement> tous;
        Recordset& t = magasin.rsdonnees();
        t.setIndex(u"primarykey"_s);
        for (t.moveFirst(); !t.eof(); t.moveNext())
            tous.push_back({t.number(u"arborescence"_s), t.number(u"noordre"_s),
                            t.text(u"référence"_s) + t.text(u"numart"_s), t.text(u"titre"_s),
                            t.number(u"positiondébut"_s), t.number(u"positionfin"_s)});
        return tous;
    }
    qint64 derniernumero() {
        Recordset& t = magasin.rsparametres();
        t.moveFirst();
        return t.number(u"dernoarborescence"_s);
    }

private:
    GardeArret garde_;
    QTemporaryDir dossier_; ///< outlives the store in it

protected:
    Magasin magasin;
    SablierMuet sablier;
};

/// With a tree that was loaded.
class ArbreTest : public MagasinTest {
protected:
    void charge() {
        arbre.litprochainnumero();
        arbre.chargearbre();
    }
    int noeud(qint64 numero) const { return noeuds.indexOf(ArbreDossiers::clenoeud(numero)); }
    /// The numbers of all nodes that are loaded below one, each before what is below it, with as many points as it is
    /// deep: "1 .2 .3 4".
    QString dessin() const {
        QStringList lignes;
        dessine(noeuds.childAt(0, 0), 0, lignes);
        return lignes.join(u' ');
    }

    TreeNodes noeuds;
    ArbreDossiers arbre{magasin, noeuds, sablier, u"Mes dossiers"_s};

private:
    void dessine(int parent, int profondeur, QStringList& lignes) const {
        for (int enfant = noeuds.child(parent); enfant != 0; enfant = noeuds.next(enfant)) {
            lignes << QString(profondeur, u'.') + QString::number(arbre.numero(enfant));
            dessine(enfant, profondeur + 1, lignes);
        }
    }
};

} // namespace velm::test
