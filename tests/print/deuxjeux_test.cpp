// Documents and dossiers in one job, each by settings of its own.
#include "banc_impression.h"

namespace velm::test {

class DeuxJeux : public BancImpression {};

TEST_F(DeuxJeux, DocumentsAndDossiersShareOneJob) {
    dossiers.margehaute = 2000;
    montre(20);
    imprimetout();
    impression.imprimerrichtextdossier(rtf, u"Baux"_s, 0, Impression::tout);
    EXPECT_EQ(appareil.passages.last(), u"0-20@3460:5460");
    EXPECT_EQ(boutons, QList<bool>({true})) << "a dossier changes them at its end";
    impression.terminetravaildossier(u"Baux"_s);
    EXPECT_EQ(boutons, QList<bool>({true, false}));
    EXPECT_EQ(etat, (EtatImpression{0, false, -1, 250, 240}));
}

TEST_F(DeuxJeux, ADossierWithEjectionChangesNoButtons) {
    dossiers.ejectionautomatique = true;
    montre(20);
    impression.imprimerrichtextdossier(rtf, u"Baux"_s, 0, Impression::tout);
    EXPECT_TRUE(boutons.isEmpty());
    EXPECT_EQ(nombre(u"fin"_s), 1);
}

} // namespace velm::test
