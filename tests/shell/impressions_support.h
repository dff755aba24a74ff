#pragma once
// Printing in the frame of the real program, on a scripted printer.
#include "platform/paper/jobpages.h"
#include "platform/widgets/paper/sheetsview.h"
#include "print/ui/frmapercu.h"
#include "shell/impressions.h"
#include "shell/recherches.h"
#include "shell/selection.h"
#include "tests/shell/dossiers_support.h"

#include <QPushButton>

namespace velm::test {

using namespace Qt::Literals::StringLiterals;

class ImpressionsTest : public DossiersTest {
protected:
    void SetUp() override {
        DossiersTest::SetUp();
        regle(u"EDITEUR", u"CHOIXIMPRIMANTE", u"0"_s);
        regle(u"EDITEUR", u"EJECTIONAUTOMATIQUE", u"1"_s);
        regle(u"EDITEUR", u"CHOIXIMPRIMANTEDOSSIER", u"0"_s);
        regle(u"EDITEUR", u"EJECTIONAUTOMATIQUEDOSSIER", u"0"_s);
    }
    void sansejection() const { regle(u"EDITEUR", u"EJECTIONAUTOMATIQUE", u"0"_s); }
    QAction& action(Ordre ordre) const { return actions().de(ordre); }
    void donne(Ordre ordre) const { actions().de(ordre).trigger(); }
    bool visible(const char* bouton) const { return barrecommande().isButtonVisible(QString::fromUtf8(bouton)); }
    FrmApercu* apercu() const { return programme->impressions().fenetreapercu(); }
    QPushButton& boutonapercu(const QString& nom) const { return *apercu()->findChild<QPushButton*>(nom); }

    /// All letters of a job.
    static QString textede(const JobPages& pages) {
        QString tout;
        for (const JobPage& page : pages.pages) {
            for (const JobRun& run : page.runs)
                tout += pages.text(run);
        }
        return tout;
    }
    std::vector<DocumentEssai> documents() const override {
        auto tous = DossiersTest::documents();
        QByteArray longtemps = "{\\rtf1\\ansi ";
        for (int i = 0; i < 400; ++i)
            longtemps += "Paragraphe " + QByteArray::number(i) + ".\\par ";
        tous.push_back({u"EU000001"_s, u"Un long document"_s, longtemps + "}"});
        return tous;
    }
};

} // namespace velm::test
