#pragma once
// A grid of documents in a window, beside something else that can have the focus.
#include "document/ui/grilledocuments.h"
#include "tests/document/ui/liste_support.h"

#include <QLineEdit>
#include <QVBoxLayout>

#include <optional>

namespace velm::test {

class GrilleDocumentsTest : public testing::Test {
protected:
    void SetUp() override {
        auto* colonne = new QVBoxLayout(&fenetre);
        colonne->addWidget(autre);
        colonne->addWidget(flex);
        fenetre.resize(700, 300);
    }
    GrilleDocuments& construit(const GrilleDocuments::Usage& usage = {}) {
        grille.emplace(*flex, colonnes, usage);
        QObject::connect(&*grille, &GrilleDocuments::ouvertes, &*grille, [this](const std::vector<Cle>& cles) {
            QStringList textes;
            for (const Cle& cle : cles)
                textes << cle.texte();
            ouvertes << textes.join(u' ');
        });
        QObject::connect(&*grille, &GrilleDocuments::trivoulu, &*grille, &GrilleDocuments::trie);
        fenetre.show();
        return *grille;
    }
    GrilleDocuments& avec(int nombre, const GrilleDocuments::Usage& usage = {}) {
        construit(usage).charge(SourceEssai::de(nombre));
        return *grille;
    }
    std::vector<int> champs() const {
        std::vector<int> tous;
        for (int place = 0; place < flex->cols(); ++place)
            tous.push_back(flex->colData(place));
        return tous;
    }

    QWidget fenetre;
    QLineEdit* autre = new QLineEdit;
    FlexGrid* flex = new FlexGrid;
    Colonnes colonnes{SourceEssai::modele(), textenumerote};
    std::optional<GrilleDocuments> grille;
    QStringList ouvertes;
};

} // namespace velm::test
