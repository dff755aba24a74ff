// The boxes that say something and ask.
#include "platform/system/ui/qtdialogues.h"
#include "tests/support/when_shown.h"

#include <QApplication>
#include <QCheckBox>
#include <QLabel>
#include <QMessageBox>
#include <QPushButton>
#include <QTest>

#include <cstdlib>
#include <gtest/gtest.h>

using namespace velm;
using namespace velm::test;
using namespace Qt::Literals::StringLiterals;

namespace {

std::unique_ptr<QTimer> pressButton(QMessageBox::StandardButton which) {
    return whenShown<QMessageBox>([which](QMessageBox& box) { box.button(which)->click(); });
}

TEST(BoitesQt, EachButtonIsItsAnswer) {
    const std::pair<Bouton, QMessageBox::StandardButton> rows[] = {{Bouton::Ok, QMessageBox::Ok},
                                                                   {Bouton::Annuler, QMessageBox::Cancel},
                                                                   {Bouton::Oui, QMessageBox::Yes},
                                                                   {Bouton::Non, QMessageBox::No}};
    QtDialogues boxes;
    for (const auto& [bouton, standard] : rows) {
        const auto hands = pressButton(standard);
        EXPECT_EQ(boxes.message(u"texte"_s, u"titre"_s, Icone::Question,
                                Bouton::Ok | Bouton::Annuler | Bouton::Oui | Bouton::Non),
                  bouton);
    }
}

TEST(BoitesQt, ACheckBoxStandsInTheBoxesThatWantOneAndTellsItsState) {
    QtDialogues boxes;
    for (const bool ticks : {true, false}) {
        bool ticked = !ticks;
        const auto hands = whenShown<QMessageBox>([ticks](QMessageBox& box) {
            ASSERT_NE(box.checkBox(), nullptr);
            EXPECT_EQ(box.checkBox()->text(), u"de même");
            box.checkBox()->setChecked(ticks);
            box.button(QMessageBox::Ok)->click();
        });
        Message message{u"texte"_s, u"titre"_s};
        message.option = u"de même"_s;
        message.optioncochee = &ticked;
        boxes.message(message);
        EXPECT_EQ(ticked, ticks);
    }
    bool without = false;
    const auto hands = whenShown<QMessageBox>([&without](QMessageBox& box) {
        without = box.checkBox() == nullptr;
        box.button(QMessageBox::Ok)->click();
    });
    boxes.message(u"texte"_s, u"titre"_s);
    EXPECT_TRUE(without);
}

TEST(BoitesQt, ABoxOfTheStartStandsBeforeTheSplash) {
    QWidget splash(nullptr, Qt::SplashScreen | Qt::WindowStaysOnTopHint);
    splash.setAttribute(Qt::WA_ShowWithoutActivating);
    splash.show();
    if (QApplication::activeWindow() != nullptr)
        QApplication::setActiveWindow(nullptr);
    const QWidget* owner = nullptr;
    bool above = false;
    const auto hands = whenShown<QMessageBox>([&](QMessageBox& box) {
        owner = box.parentWidget();
        above = box.windowFlags().testFlag(Qt::WindowStaysOnTopHint);
        box.button(QMessageBox::Ok)->click();
    });
    QtDialogues().message(u"texte"_s, u"titre"_s, Icone::Stop);
    EXPECT_EQ(owner, &splash);
    EXPECT_TRUE(above);
}

TEST(BoitesQt, ShowTheTextAsItIs) {
    QtDialogues boxes;
    QString text;
    QString title;
    QMessageBox::Icon icon = QMessageBox::NoIcon;
    Qt::TextFormat format = Qt::AutoText;
    const auto hands = whenShown<QMessageBox>([&](QMessageBox& box) {
        text = box.text();
        title = box.windowTitle();
        icon = box.icon();
        format = box.textFormat();
        box.button(QMessageBox::Ok)->click();
    });
    boxes.message(u"<b>x</b>"_s, u"titre"_s, Icone::Stop);
    EXPECT_EQ(text, u"<b>x</b>"_s);
    EXPECT_EQ(title, u"titre"_s);
    EXPECT_EQ(icon, QMessageBox::Critical);
    EXPECT_EQ(format, Qt::PlainText);
}

TEST(BoitesQt, ReturnPressesTheDefaultButton) {
    QtDialogues boxes;
    for (const Bouton bouton : {Bouton::Oui, Bouton::Non}) {
        const auto hands = whenShown<QMessageBox>([](QMessageBox& box) { QTest::keyClick(&box, Qt::Key_Return); });
        EXPECT_EQ(boxes.message(u"?"_s, {}, Icone::Question, Bouton::Oui | Bouton::Non, bouton), bouton);
    }
}

TEST(BoitesQt, WithoutADefaultReturnAgreesInEveryOrderOfButtons) {
    QtDialogues boxes([](int) { ADD_FAILURE() << "help was asked for"; });
    const auto pressReturn = [](QMessageBox& box) {
        QTest::keyClick(&box, Qt::Key_Return);
        if (box.isVisible())
            box.reject();
    };
    for (int order = 0; order <= 3; ++order) {
        qApp->setStyleSheet(u"* { button-layout: %1 }"_s.arg(order));
        auto hands = whenShown<QMessageBox>(pressReturn);
        EXPECT_EQ(boxes.message(u"?"_s, {}, Icone::Question, Bouton::Oui | Bouton::Non | Bouton::Aide), Bouton::Oui);
        hands = whenShown<QMessageBox>(pressReturn);
        EXPECT_EQ(boxes.message(u"?"_s, {}, Icone::Question, Bouton::Ok | Bouton::Annuler), Bouton::Ok);
    }
    qApp->setStyleSheet(QString());
}

TEST(BoitesQt, EscapeIsNeverAYes) {
    QtDialogues boxes;
    for (const Boutons boutons : {Bouton::Oui | Bouton::Non, Bouton::Oui | Bouton::Non | Bouton::Annuler,
                                  Bouton::Ok | Bouton::Annuler, Boutons(Bouton::Ok)}) {
        const auto hands = whenShown<QMessageBox>([](QMessageBox& box) { QTest::keyClick(&box, Qt::Key_Escape); });
        EXPECT_EQ(boxes.message(u"?"_s, {}, Icone::Question, boutons), boutonAbandon(boutons));
    }
}

TEST(BoitesQt, TheHelpButtonShowsThePageAndLeavesTheBox) {
    QList<int> pages;
    QtDialogues boxes([&](int contexte) { pages.append(contexte); });
    const auto hands = whenShown<QMessageBox>([](QMessageBox& box) {
        box.button(QMessageBox::Help)->click();
        box.button(QMessageBox::Help)->click();
        ASSERT_TRUE(box.isVisible());
        box.button(QMessageBox::No)->click();
    });
    EXPECT_EQ(boxes.message(u"?"_s, {}, Icone::Question, Bouton::Oui | Bouton::Non | Bouton::Aide, Bouton::Oui, 13),
              Bouton::Non);
    EXPECT_EQ(pages, (QList<int>{13, 13}));
}

TEST(BoitesQt, WithoutHelpThereIsNoHelpButton) {
    QtDialogues boxes;
    bool present = true;
    const auto hands = whenShown<QMessageBox>([&](QMessageBox& box) {
        present = box.button(QMessageBox::Help) != nullptr;
        box.button(QMessageBox::Ok)->click();
    });
    boxes.message(u"?"_s, {}, Icone::Aucune, Bouton::Ok | Bouton::Aide);
    EXPECT_FALSE(present);
}

TEST(BoitesQt, WithoutAHelpFileThereIsNoHelpButtonEither) {
    bool there = false;
    QtDialogues boxes([](int) {}, [&there] { return there; });
    for (const bool now : {true, false}) {
        there = now;
        bool button = !now;
        const auto hands = whenShown<QMessageBox>([&](QMessageBox& box) {
            button = box.button(QMessageBox::Help) != nullptr;
            box.button(QMessageBox::Ok)->click();
        });
        boxes.message(u"?"_s, {}, Icone::Aucune, Bouton::Ok | Bouton::Aide);
        EXPECT_EQ(button, now);
    }
}

TEST(BoitesQt, AMessageMayCallItsButtonsByWhatTheyDo) {
    QtDialogues boxes;
    boxes.setCaptions([](Bouton) { return u"usual"_s; });
    QStringList captions;
    const auto look = [&captions](QMessageBox& box) {
        captions.clear();
        for (const auto which : {QMessageBox::Yes, QMessageBox::Ok, QMessageBox::No, QMessageBox::Cancel}) {
            if (const auto* button = box.button(which))
                captions << button->text();
        }
        box.reject();
    };
    const auto captionsOf = [&](Boutons boutons) {
        Message message{u"?"_s, u"titre"_s, Icone::Question, boutons};
        message.accord = u"open"_s;
        message.refus = u"leave"_s;
        const auto hands = whenShown<QMessageBox>(look);
        boxes.message(message);
        return captions;
    };
    EXPECT_EQ(captionsOf(Bouton::Oui | Bouton::Non), (QStringList{u"open"_s, u"leave"_s}));
    EXPECT_EQ(captionsOf(Bouton::Ok | Bouton::Annuler), (QStringList{u"open"_s, u"leave"_s}));
    EXPECT_EQ(captionsOf(Bouton::Oui | Bouton::Non | Bouton::Annuler),
              (QStringList{u"open"_s, u"leave"_s, u"usual"_s}));
    const auto hands = whenShown<QMessageBox>(look);
    boxes.message(u"?"_s, {}, Icone::Question, Bouton::Oui | Bouton::Non);
    EXPECT_EQ(captions, (QStringList{u"usual"_s, u"usual"_s}));
}

TEST(BoitesQt, AShortTextStandsInTheMiddleOfItsPictureAndTheButtonsAtTheRight) {
    QtDialogues boxes;
    for (const Icone icon : {Icone::Question, Icone::Aucune}) {
        QRect picture;
        QRect text;
        QRect button;
        QSize whole;
        const auto hands = whenShown<QMessageBox>([&](QMessageBox& box) {
            whole = box.size();
            if (const auto* label = box.findChild<QLabel*>(u"qt_msgboxex_icon_label"_s); label && label->isVisible())
                picture = label->geometry();
            text = box.findChild<QLabel*>(u"qt_msgbox_label"_s)->geometry();
            const QPushButton* last = qobject_cast<QPushButton*>(box.button(QMessageBox::No));
            button = QRect(last->mapTo(&box, QPoint()), last->size());
            box.reject();
        });
        boxes.message(u"Quitter ?"_s, u"t"_s, icon, Bouton::Oui | Bouton::Non);
        if (icon == Icone::Question) {
            EXPECT_LE(std::abs(picture.center().y() - text.center().y()), 1);
        } else {
            EXPECT_EQ(text.left(), 12) << "no room is kept for a picture";
        }
        EXPECT_EQ(whole.width() - 1 - button.right(), 12);
        EXPECT_EQ(whole.height() - 1 - button.bottom(), 12);
    }
}

} // namespace
