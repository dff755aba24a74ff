#pragma once
// A document window without a widget.
#include "document/affichage.h"

namespace velm::test {

using namespace Qt::Literals::StringLiterals;

struct ListeEssai final : ListeLaterale {
    bool visible() const override { return vue; }
    int couleurbouton() const override { return couleur; }
    void recharge(const Cle& cle) override { recharges += cle.texte(); }
    bool vue = false;
    int couleur = ouverte;
    QStringList recharges;
};

/// Writes down what is asked of it, and how the control stood then.
struct FenetreDeDocument final : FormulaireDocument {
    RichTextControl& rtfRichTextBox1() override { return controle; }
    ListesLiens* listes() override { return &liens; }
    DocumentAffiche& document() override { return membres; }
    void changetitre(const QString& nouveau) override {
        titre = nouveau;
        journal += u"titre"_s;
        motcleautitre = membres.motcle1;
    }
    void activemenus() override { journal += controle.redraw() ? u"menus!"_s : u"menus"_s; }
    void rafraichit() override { journal += controle.redraw() && controle.visible() ? u"rafraichit"_s : u"trop tôt"_s; }
    ListeLaterale& listedesliens() override { return sortants; }
    ListeLaterale& listedescorrelats() override { return correlats; }

    RichTextControl controle;
    ListesLiens liens;
    DocumentAffiche membres;
    QString titre;
    QString motcleautitre;
    QStringList journal;
    ListeEssai sortants;
    ListeEssai correlats;
};

} // namespace velm::test
