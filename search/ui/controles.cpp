#include "search/ui/controles.h"

#include "platform/widgets/look/plaintext.h"

#include <QCheckBox>
#include <QComboBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>

namespace velm {

using namespace Qt::Literals::StringLiterals;

QLabel* nouvelleetiquette(const QString& libelle, QWidget* nomme, QWidget* parent) {
    auto* label = plainLabel(libelle, parent);
    label->setBuddy(nomme);
    return label;
}

QComboBox* nouvelleliste(const QString& nom, const QString& libelle, const QStringList& items, QWidget* parent) {
    auto* nouvelle = new QComboBox(parent);
    nommeliste(*nouvelle, nom, libelle, items);
    return nouvelle;
}

void nommeliste(QComboBox& liste, const QString& nom, const QString& libelle, const QStringList& items) {
    liste.setObjectName(nom);
    liste.setAccessibleName(QString(libelle).remove(u'&'));
    liste.addItems(items);
}

QCheckBox* nouvellecoche(const QString& nom, const QString& libelle, QWidget* parent) {
    auto* nouvelle = new QCheckBox(libelle, parent);
    nouvelle->setObjectName(nom);
    return nouvelle;
}

QPushButton* nouveaubouton(const QString& nom, const QString& libelle, QWidget* parent) {
    auto* nouveau = new QPushButton(libelle, parent);
    nouveau->setObjectName(nom);
    nouveau->setAutoDefault(true);
    return nouveau;
}

void metaumilieu(QWidget& celui, int largeur, QHBoxLayout* autour) {
    celui.setMaximumWidth(largeur);
    autour->setContentsMargins({});
    autour->addStretch(1);
    autour->addWidget(&celui, largeur);
    autour->addStretch(1);
}

QString nomnumerote(const QString& nom, int numero) {
    return u"%1(%2)"_s.arg(nom).arg(numero);
}

} // namespace velm
