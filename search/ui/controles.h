#pragma once
// Small controls of the search form, made as all of them are: each bears the name by which it is known, and what a
// reader of the screen says of it.
#include <QString>
#include <QStringList>

class QCheckBox;
class QComboBox;
class QHBoxLayout;
class QLabel;
class QPushButton;
class QWidget;

namespace velm {

/// A label; its shortcut, if it has one, leads to `nomme`.
QLabel* nouvelleetiquette(const QString& libelle, QWidget* nomme, QWidget* parent);
/// The shortcut of the label is no part of what is said.
QComboBox* nouvelleliste(const QString& nom, const QString& libelle, const QStringList& items, QWidget* parent);
void nommeliste(QComboBox& liste, const QString& nom, const QString& libelle, const QStringList& items);
QCheckBox* nouvellecoche(const QString& nom, const QString& libelle, QWidget* parent);
/// The Return key presses the one that has the focus.
QPushButton* nouveaubouton(const QString& nom, const QString& libelle, QWidget* parent);

/// No wider than that, and where there is more room, in its middle.
void metaumilieu(QWidget& celui, int largeur, QHBoxLayout* autour);

/// The name of one of several controls that bear the same.
QString nomnumerote(const QString& nom, int numero);

} // namespace velm
