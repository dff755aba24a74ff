#pragma once
// The printing of documents and of dossiers step by step, once for each, as it is told: the model of what the engine
// must do. It prints on the same kind of printer.
#include "core/parametres.h"
#include "platform/paper/printdevice.h"
#include "platform/richtext/control.h"

namespace velm::test {

/// A step that ends whatever is being printed.
struct Debordement {};
struct SansPlace {};

/// One set of globals, and the state that both share.
class BoucleLitterale {
public:
    BoucleLitterale(PrintDevice& printer, ReglagesImpression documents, ReglagesImpression dossiers)
        : Printer(printer), D(std::move(documents)), DOSSIER(std::move(dossiers)) {}

    void imprimerichtext(const RichTextControl& rtf, qsizetype debut, qsizetype fin);
    void finimpression();
    void terminetravail();
    void abandontravail();
    void dessineentetepied();
    void imprimerrichtextdossier(const RichTextControl& rtf, const QString& nomdossier, qsizetype debut, qsizetype fin);
    void finimpressiondossier(const QString& nomdossier);
    void terminetravaildossier(const QString& nomdossier);
    void dessineentetepieddossier(const QString& nomdossier);

    int numeropage = 0;
    bool travailencours = false;
    int positioncourante = -1;
    int decalagex = 0;
    int decalagey = 0;
    QList<bool> boutons;

private:
    static int entier(qint64 valeur);
    static QString travaille(QString texte, const QString& nomdossier);
    void place(int cadrage, const ReglagesImpression& r, qint64 w);
    void police(const PoliceImpression& p);

    PrintDevice& Printer;
    ReglagesImpression D;
    ReglagesImpression DOSSIER;
};

} // namespace velm::test
