#include "core/dates.h"

#include "core/langue.h"

#include <QDate>

#include <array>

namespace velm {

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr std::array mois{Texte::Janvier,   Texte::Fevrier, Texte::Mars,     Texte::Avril,
                          Texte::Mai,       Texte::Juin,    Texte::Juillet,  Texte::Aout,
                          Texte::Septembre, Texte::Octobre, Texte::Novembre, Texte::Decembre};

} // namespace

QString dateecrite(const QString& date, const Libelles& texte) {
    const QDate lue = QDate::fromString(date, u"yyyy-MM-dd"_s);
    if (!lue.isValid())
        return date;
    const QString jour = lue.day() == 1 ? texte(Texte::PremierDuMois) : QString::number(lue.day());
    const QString lemois = texte(mois.at(static_cast<std::size_t>(lue.month()) - 1));
    return remplace(texte(Texte::DateEcrite), {jour, lemois, QString::number(lue.year())});
}

} // namespace velm
