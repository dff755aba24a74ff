#include "core/avis.h"

#include "core/raisons.h"

#include <QScopedValueRollback>

namespace velm {

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr auto titreduprogramme = Texte::NomDuProgramme;
constexpr auto titredelafin = Texte::TitreErreurDExecution;
constexpr auto textedelafin = Texte::LeProgrammeDoitSArreter;
constexpr auto titredureglage = Texte::TitreReglageInutilisable;
constexpr auto textedureglage = Texte::ReglageInutilisable;
constexpr auto questiondureglage = Texte::QuestionReglageParDefaut;
constexpr auto pourtouslesreglages = Texte::PourTousLesReglages;
constexpr auto conseildureglage = Texte::ConseilReglageFautif;
constexpr auto tairelestextes = Texte::TaireLesTextesManquants;
constexpr auto memoirepourlasuite = Texte::MemoirePourLaSuite;
constexpr auto memoireaudebut = Texte::MemoireAuDemarrage;

/// Boxes about missing texts that stand alone before one offers to be the last.
constexpr int textesavantoption = 2;
constexpr int questionsavantoption = 1;

} // namespace

Avis::Avis(Dialogues& dialogues, Langue& langue) : dialogues_(dialogues), langue_(langue) {}

/// A text for a box that is itself about missing ones: it must not ask for another box.
QString Avis::sansboite(Texte lequel) {
    const QScopedValueRollback silence(silencieux_, true);
    return langue_.lireressource(lequel);
}

void Avis::textemanquant(const QString& numero) {
    if (silencieux_ || textestus_)
        return;
    Message boite{numero, QString()};
    if (textesmanquants_++ >= textesavantoption) {
        const QString option = sansboite(tairelestextes);
        // Missing itself, it shows its number like any other.
        boite.option = option.isEmpty() ? QString::number(static_cast<int>(tairelestextes)) : option;
        boite.optioncochee = &textestus_;
    }
    dialogues_.message(boite);
}

bool Avis::continueavecledefaut(const RuntimeFailure& faute) {
    if (defautspartout_)
        return true;
    Message boite{remplace(langue_.lireressource(textedureglage), {raisondelerreur(langue_, faute)}) + u"\n\n"_s +
                      langue_.lireressource(questiondureglage),
                  langue_.lireressource(titredureglage), Icone::Exclamation, Bouton::Oui | Bouton::Non};
    boite.accord = langue_.lireressource(Texte::ReponseContinuer);
    boite.refus = langue_.lireressource(Texte::ReponseArreterLeProgramme);
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
        Texte texte;
    } libelles[] = {{Bouton::Oui, Texte::ReponseOui},
                    {Bouton::Non, Texte::ReponseNon},
                    {Bouton::Annuler, Texte::ReponseAnnuler},
                    {Bouton::Aide, Texte::ReponseAide},
                    {Bouton::Ok, Texte::ReponseOk}};
    for (const auto& libelle : libelles) {
        if (libelle.bouton == bouton)
            return sansboite(libelle.texte);
    }
    return {};
}

} // namespace velm
