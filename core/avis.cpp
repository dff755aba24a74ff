#include "core/avis.h"

#include "core/raisons.h"

#include <QScopedValueRollback>

namespace velm {

namespace {

constexpr int titreduprogramme = 8;
constexpr int titredelafin = 9400;
constexpr int textedelafin = 9401;
constexpr int titredureglage = 9513;
constexpr int textedureglage = 9514;
constexpr int questiondureglage = 9515;
constexpr int pourtouslesreglages = 9516;
constexpr int conseildureglage = 9517;
constexpr int tairelestextes = 9518;
constexpr int memoirepourlasuite = 9519;
constexpr int memoireaudebut = 9520;

/// Boxes about missing texts that stand alone before one offers to be the last.
constexpr int textesavantoption = 2;
constexpr int questionsavantoption = 1;

} // namespace

Avis::Avis(Dialogues& dialogues, Langue& langue) : dialogues_(dialogues), langue_(langue) {}

/// A text for a box that is itself about missing ones: it must not ask for another box.
QString Avis::sansboite(int numero) {
    const QScopedValueRollback silence(silencieux_, true);
    return langue_.lireressource(numero);
}

void Avis::textemanquant(const QString& numero) {
    if (silencieux_ || textestus_)
        return;
    Message boite{numero, QString()};
    if (textesmanquants_++ >= textesavantoption) {
        const QString option = sansboite(tairelestextes);
        // Missing itself, it shows its number like any other.
        boite.option = option.isEmpty() ? QString::number(tairelestextes) : option;
        boite.optioncochee = &textestus_;
    }
    dialogues_.message(boite);
}

bool Avis::continueavecledefaut(const RuntimeFailure& faute) {
    if (defautspartout_)
        return true;
    Message boite{remplace(langue_.lireressource(textedureglage), {raisondelerreur(langue_, faute)}) +
                      QStringLiteral("\n\n") + langue_.lireressource(questiondureglage),
                  langue_.lireressource(titredureglage), Icone::Exclamation, Bouton::Oui | Bouton::Non};
    bool partout = false;
    if (questions_++ >= questionsavantoption) {
        boite.option = langue_.lireressource(pourtouslesreglages);
        boite.optioncochee = &partout;
    }
    const bool oui = dialogues_.message(boite) == Bouton::Oui;
    defautspartout_ = oui && partout;
    return oui;
}

void Avis::fin(const RuntimeFailure& erreur) {
    if (erreur.said)
        return;
    QString raison = raisondelerreur(langue_, erreur);
    if (erreur.setting)
        raison += u' ' + langue_.lireressource(conseildureglage);
    dialogues_.message(remplace(langue_.lireressource(textedelafin), {raison}), langue_.lireressource(titredelafin),
                       Icone::Stop);
}

void Avis::sansmemoire(bool audebut) {
    dialogues_.message(langue_.lireressource(audebut ? memoireaudebut : memoirepourlasuite),
                       langue_.lireressource(titreduprogramme), Icone::Exclamation);
}

QString Avis::libellebouton(Bouton bouton) {
    constexpr struct {
        Bouton bouton;
        int texte;
    } libelles[] = {
        {Bouton::Oui, 9270}, {Bouton::Non, 9271}, {Bouton::Annuler, 9272}, {Bouton::Aide, 9273}, {Bouton::Ok, 9274}};
    for (const auto& libelle : libelles) {
        if (libelle.bouton == bouton)
            return sansboite(libelle.texte);
    }
    return {};
}

} // namespace velm
