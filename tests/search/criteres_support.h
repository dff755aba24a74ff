#pragma once
// A base whose documents have all the fields that criteria ask for, with or without the folded texts of their bodies.
#include "core/schemas.h"
#include "platform/richtext/foldtext.h"
#include "platform/richtext/rtf.h"
#include "search/recherchecriteres.h"
#include "tests/search/recherche_support.h"

namespace velm::test {

struct Piece {
    QString cle;
    QString titre = {};
    QString corps = {}; ///< plain text; null for a document without a body
    QStringList motscles = {};
    QString source = {};
    QString date = {};
    QString type = {};
};

/// Rich text of a plain one.
inline QString enrichi(const QString& texte) {
    QString rtf = u"{\\rtf1\\ansi\\uc1 "_s;
    for (const QChar unite : texte) {
        if (unite == u'\n')
            rtf += u"\\par\n"_s;
        else if (unite == u'\t')
            rtf += u"\\tab "_s;
        else if (unite == u'{' || unite == u'}' || unite == u'\\')
            rtf += u'\\' + QString(unite);
        else if (unite.unicode() < 0x80)
            rtf += unite;
        else
            rtf += u"\\u%1?"_s.arg(static_cast<qint16>(unite.unicode()));
    }
    return rtf + u'}';
}

class BaseCriteres : public BaseRecherche {
protected:
    void ouvrepieces(bool avectable) {
        const QString chemin = dossier.filePath(u"pieces%1.dat"_s.arg(++bases));
        {
            const auto faite = Database::create(chemin, corpusSchema());
            ASSERT_NE(faite.database, nullptr);
            ecritpieces(*faite.database, avectable);
        }
        corpus.fermebase();
        ASSERT_EQ(corpus.connecte(chemin), OpenError::None);
        corpus.ouvretables();
        types = littypesdocument(corpus);
    }

    Bilan cherche(const QByteArray& lettres = touteslettres()) { return cherche(criteres, lettres); }
    Bilan cherche(Criteres& voulus, const QByteArray& lettres, bool sanstable = false) {
        return bilan([&](Marche& marche, Resultat& resultat) {
            RechercheCriteres recherche(corpus, marche);
            recherche.sanstable(sanstable);
            recherche.cherche(voulus, types, lettres, resultat);
        });
    }
    Bilan affine() {
        return bilan([&](Marche& marche,
                         Resultat& resultat) { RechercheCriteres(corpus, marche).affine(criteres, types, resultat); },
                     true);
    }
    /// What a search with these criteria finds; the same without the folded texts.
    QStringList trouve(const QByteArray& lettres = touteslettres()) {
        cherche(lettres);
        QStringList avec = cles();
        cherche(criteres, lettres, true);
        EXPECT_EQ(cles(), avec);
        return avec;
    }

    /// A change from outside.
    void change(const QString& requete) {
        corpus.base().releaseLocks();
        const auto autre = Database::open(corpus.chemin(), OpenMode::Shared, corpusSchema());
        ASSERT_NE(autre.database, nullptr);
        ASSERT_TRUE(autre.database->execute(requete)) << qPrintable(autre.database->lastError());
    }

    std::vector<Piece> pieces;
    Criteres criteres;
    TypesDocument types;

private:
    static QVariant ounul(const QString& texte) { return texte.isNull() ? QVariant() : QVariant(texte); }

    void ecritpieces(Database& base, bool avectable) const {
        TableWriter donnees(base, u"données"_s,
                            {u"référence"_s, u"numart"_s, u"titre"_s, u"motclé1"_s, u"motclé2"_s, u"motclé3"_s,
                             u"Source"_s, u"Date"_s, u"typededocument"_s});
        TableWriter contenus(base, u"données_contenu"_s, {u"contenu"_s});
        std::array<qint64, nombredecollections> comptes{};
        for (const Piece& p : pieces) {
            ASSERT_TRUE(donnees.add({p.cle.left(2), p.cle.mid(2), ounul(p.titre), ounul(p.motscles.value(0)),
                                     ounul(p.motscles.value(1)), ounul(p.motscles.value(2)), ounul(p.source),
                                     ounul(p.date), ounul(p.type)}));
            ASSERT_TRUE(contenus.add({p.corps.isNull() ? QVariant() : QVariant(enrichi(p.corps))}));
            ++comptes[static_cast<std::size_t>(indicedetype(p.cle.left(2)))];
        }
        TableWriter kinds(base, u"typedocument"_s, {u"typedocument"_s, u"numerodutype"_s, u"ordre"_s});
        ASSERT_TRUE(kinds.add({u"Loi"_s, 40, 1}) && kinds.add({u"Arrêt"_s, 7, 2}));
        TableWriter parametres(base, u"paramètres"_s, {u"nbarticles"_s});
        QString packs;
        for (const qint64 compte : comptes)
            packs += sixchiffres(compte);
        ASSERT_TRUE(parametres.add({packs}));
        if (!avectable)
            return;
        ASSERT_TRUE(base.makeTable(u"textes"_s));
        TableWriter textes(base, u"textes"_s, {u"version"_s, u"texte"_s});
        for (const Piece& p : pieces)
            ASSERT_TRUE(textes.add({foldedTextVersion(), foldedText(rtfToText(enrichi(p.corps).toLatin1()))}));
    }

    int bases = 0;
};

} // namespace velm::test
