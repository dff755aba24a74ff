#pragma once
// What the status bar tells of the document in front: its place in the contents, its reference, its position in the
// collection. It is looked up once the document is on the screen.
#include "core/corpus.h"
#include "core/texte.h"

#include <QObject>
#include <QTimer>

namespace velm {

class Bureau;
class Ecrangeneral;

class LigneDEtat final : public QObject {
    Q_OBJECT

public:
    /// None is owned; all of it outlives this. `libelle` gives the name of a slot's collection.
    struct Donnees {
        Ecrangeneral& ecran;
        Bureau& bureau;
        Corpus& corpus;
        Libelles texte;
        std::function<QString(int indice)> libelle;
    };
    explicit LigneDEtat(const Donnees& donnees);

    /// Nothing is looked up any more: the base may be closed.
    void arrete();

private:
    void suit();
    void dit();

    Donnees donnees_;
    QString dite_; ///< key of the document that is told of
    QTimer apreslaffichage_;
    bool arretee_ = false;
};

} // namespace velm
