// The names of the texts against the files that hold them.
#include "core/langue.h"
#include "core/texte.h"
#include "platform/system/profile.h"

#include <QFile>
#include <QHash>
#include <QRegularExpression>
#include <QSet>

#include <gtest/gtest.h>

using namespace velm;
using namespace Qt::Literals::StringLiterals;

namespace {

QString litfichier(const QString& nom) {
    QFile fichier(QStringLiteral(VELM_SOURCE_DIR "/") + nom);
    EXPECT_TRUE(fichier.open(QIODevice::ReadOnly)) << nom.toStdString();
    return QString::fromUtf8(fichier.readAll());
}

struct Nomme {
    QString nom;
    int numero;
};

QList<Nomme> nommes() {
    static const QRegularExpression ligne(u"^ +(\\w+) = (\\d+),?$"_s, QRegularExpression::MultilineOption);
    QList<Nomme> tous;
    for (const auto& trouve : ligne.globalMatch(litfichier(u"core/texte.h"_s)))
        tous.append({trouve.captured(1), trouve.captured(2).toInt()});
    return tous;
}

/// A text of a language, by its number; none is taken from another language here.
QString motsde(const QString& langue, int numero) {
    static QHash<QString, Profile> profils;
    if (!profils.contains(langue))
        profils.insert(langue, Profile(QStringLiteral(VELM_SOURCE_DIR "/langues/RES2000.") + langue));
    return profils.value(langue).string(u"VELMORANTE 2000"_s, QString::number(numero), QString());
}

} // namespace

TEST(Texte, EachNameStandsForATextInBothLanguages) {
    ASSERT_GT(nommes().size(), 300);
    for (const Nomme& un : nommes()) {
        for (const QString& langue : {u"FR"_s, u"EN"_s})
            EXPECT_FALSE(motsde(langue, un.numero).isEmpty())
                << un.nom.toStdString() << " = " << un.numero << " in " << langue.toStdString();
    }
}

TEST(Texte, NoTextHasTwoNames) {
    QSet<int> numeros;
    int dernier = -1;
    for (const Nomme& un : nommes()) {
        EXPECT_FALSE(numeros.contains(un.numero)) << un.nom.toStdString();
        EXPECT_GT(un.numero, dernier) << un.nom.toStdString() << " is not in its place";
        dernier = un.numero;
        numeros.insert(un.numero);
    }
}

TEST(Texte, TheTableOfTextsTellsOfTextsThatAreThere) {
    static const QRegularExpression ligne(u"^\\| (\\d+) \\| (.+) \\|$"_s, QRegularExpression::MultilineOption);
    QSet<int> decrits;
    for (const auto& trouvee : ligne.globalMatch(litfichier(u"langues/README.md"_s))) {
        const int numero = trouvee.captured(1).toInt();
        EXPECT_FALSE(decrits.contains(numero)) << numero << " is told of twice";
        decrits.insert(numero);
        for (const QString& langue : {u"FR"_s, u"EN"_s})
            EXPECT_FALSE(motsde(langue, numero).isEmpty()) << numero << " in " << langue.toStdString();
    }
    for (const Nomme& un : nommes())
        EXPECT_TRUE(decrits.contains(un.numero)) << un.nom.toStdString() << " = " << un.numero;
}

TEST(Texte, WindowsHaveTheirTextsInOrder) {
    for (int indice = 0; indice < 12; ++indice)
        EXPECT_EQ(static_cast<int>(libelledefenetre(indice)), 10 + indice);
    EXPECT_THROW(libelledefenetre(12), std::out_of_range);
}
