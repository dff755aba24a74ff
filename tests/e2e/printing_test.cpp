// A document printed into a file by the system's own dialog, a second one into the same job, the preview, the end.
#include "platform/widgets/paper/sheetsview.h"
#include "print/ui/frmapercu.h"
#include "shell/impressions.h"
#include "tests/e2e/hosted.h"

#include <QApplication>
#include <QDir>
#include <QLineEdit>
#include <QMessageBox>
#include <QProcess>
#include <QPushButton>

#include <algorithm>

namespace velm::e2e {

namespace {

class Printing : public Hosted {
protected:
    void SetUp() override {
        ASSERT_NO_FATAL_FAILURE(layOut());
        host->setSetting(u"GENERALITES", u"CHECKQUIT", u"1"_s);
        host->setSetting(u"EDITEUR", u"EJECTIONAUTOMATIQUE", u"0"_s);
        ASSERT_NO_FATAL_FAILURE(start());
        inProgram([&] { host->program().ouvre(decoupecle(u"CO000088"_s)); });
        ASSERT_TRUE(becomes([&] { return host->front() && host->front()->referencecourante() == u"CO000088"; }));
    }

    // ---- in the program's thread
    QWidget* question() const {
        QWidget* const modal = QApplication::activeModalWidget();
        return modal && modal->inherits("QPrintDialog") ? modal : nullptr;
    }
    FrmApercu* preview() const { return host->program().impressions().fenetreapercu(); }
    bool jobIsOpen() const { return host->program().impressions().impressionouverte(); }
    Spot button(const QString& name) const {
        return preview() ? Spot::of(preview()->findChild<QPushButton*>(name)) : Spot();
    }
    QString file() const { return QDir(host->folder()).filePath(u"travail.pdf"_s); }

    // ---- what the user does
    void printIntoFile() {
        key(u"ctrl+p"_s);
        ASSERT_TRUE(becomes([this] { return question() && question()->isActiveWindow(); }));
        inProgram([this] {
            for (QLineEdit* field : question()->findChildren<QLineEdit*>()) {
                if (field->isVisible() && field->text().endsWith(u".pdf"))
                    field->setText(file());
            }
        });
        photo(u"80-imprimer"_s);
        key(u"Return"_s);
        ASSERT_TRUE(becomes([this] { return !question() && jobIsOpen(); }));
    }
};

} // namespace

TEST_F(Printing, TwoDocumentsRunOnInOneJobIntoAFile) {
    ASSERT_NO_FATAL_FAILURE(printIntoFile());
    inProgram([&] { host->program().ouvre(decoupecle(u"DI000008"_s)); });
    ASSERT_TRUE(becomes([&] { return host->front()->referencecourante() == u"DI000008"; }));
    // The button that prints on stands in the place of the other one; nobody is asked again.
    ASSERT_TRUE(touch([this] { return Spot::named(host->bar(u"barrecommande"_s), u"imprimereject"_s); }));
    key(u"ctrl+shift+p"_s);
    ASSERT_TRUE(becomes([this] { return preview() && preview()->isActiveWindow() && preview()->vue().count() > 0; }));
    photo(u"81-apercu"_s);
    key(u"End"_s);
    ASSERT_TRUE(touch([this] { return button(u"imprimer"_s); }));
    ASSERT_TRUE(becomes([this] { return !preview() && !jobIsOpen() && QFile::exists(file()); }));
    QProcess reader;
    reader.start(u"pdftotext"_s, {file(), u"-"_s});
    ASSERT_TRUE(reader.waitForFinished());
    const QString words = QString::fromUtf8(reader.readAllStandardOutput());
    EXPECT_TRUE(words.contains(u"taux effectif complet"_s));
    EXPECT_TRUE(words.contains(u"aune de Vaucelles"_s));
    // The next job is offered a file of its own.
    key(u"ctrl+p"_s);
    ASSERT_TRUE(becomes([this] { return question() && question()->isActiveWindow(); }));
    EXPECT_TRUE(inProgram([this] {
        const auto fields = question()->findChildren<QLineEdit*>();
        return std::ranges::any_of(fields,
                                   [](const QLineEdit* field) { return field->text().endsWith(u"travail (2).pdf"); });
    }));
    key(u"Escape"_s);
    ASSERT_TRUE(becomes([this] { return !question(); }));
    EXPECT_FALSE(inProgram([this] { return jobIsOpen(); }));
}

TEST_F(Printing, AnOpenJobIsAskedAboutAtTheEnd) {
    ASSERT_NO_FATAL_FAILURE(printIntoFile());
    key(u"ctrl+q"_s);
    ASSERT_TRUE(becomes([] { return Host::box() && Host::box()->isActiveWindow(); }));
    photo(u"82-fin-impression"_s);
    key(u"Escape"_s);
    ASSERT_TRUE(becomes([this] { return host->hasEnded(); }));
    EXPECT_FALSE(QFile::exists(file())) << "any other answer throws the job away";
}

} // namespace velm::e2e
