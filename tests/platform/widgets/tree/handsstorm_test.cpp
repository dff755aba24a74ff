#include "tests/support/quiet.h"
#include "treewithlist.h"

#include <QLineEdit>
#include <QPointer>
#include <QRandomGenerator>
#include <QTest>

namespace velm {

using namespace Qt::Literals::StringLiterals;

namespace {

/// What can happen to a window in which somebody edits labels and carries entries.
class Storm {
public:
    explicit Storm(unsigned seed) : random_(seed) {}
    ~Storm() { delete host_.data(); }
    void step() {
        if (!host_)
            open();
        (this->*deeds()[static_cast<std::size_t>(random_.bounded(static_cast<int>(deeds().size())))])();
    }
    TreeWithList* host() const { return host_; }

private:
    using Deed = void (Storm::*)();
    static const std::vector<Deed>& deeds() {
        static const std::vector<Deed> all{&Storm::goes,    &Storm::hides,   &Storm::resizes, &Storm::refills,
                                           &Storm::removes, &Storm::edits,   &Storm::edits,   &Storm::types,
                                           &Storm::ends,    &Storm::presses, &Storm::presses, &Storm::moves,
                                           &Storm::moves,   &Storm::moves,   &Storm::lets,    &Storm::lives,
                                           &Storm::carries, &Storm::lives,   &Storm::moves,   &Storm::arranges};
        return all;
    }
    int any(int count) { return random_.bounded(count + 2); }
    bool rarely(int times) { return random_.bounded(times) == 0; }
    QPoint somewhere() { return {random_.bounded(640), random_.bounded(400)}; }
    void open() {
        host_ = new TreeWithList;
        refills();
        host_->show();
        // Its owners do more than hear of it.
        QObject::connect(&host_->tree, &TreeView::labelEdited, host_, [this] { afterwards(); });
        QObject::connect(&host_->list, &ListView::labelEdited, host_, [this] { afterwards(); });
        QObject::connect(&host_->carrier, &Carrier::dropped, host_, [this] { afterwards(); });
    }
    void afterwards() {
        if (rarely(6))
            host_->tree.nodes().remove(any(host_->tree.nodes().count()));
        if (rarely(6))
            refills();
        if (rarely(6))
            edits();
    }
    void goes() {
        if (rarely(40))
            delete host_.data();
    }
    void hides() { host_->setVisible(!rarely(5)); }
    void resizes() { host_->tree.resize(random_.bounded(1, 300), random_.bounded(1, 380)); }
    void refills() {
        if (!rarely(8) && host_->list.items().count() > 0)
            return;
        host_->list.items().setRedraw(rarely(2));
        host_->list.items().clear();
        host_->tree.nodes().clear();
        host_->plant(random_.bounded(1, 30), random_.bounded(30));
        host_->list.items().setRedraw(true);
    }
    void removes() {
        host_->tree.nodes().remove(any(host_->tree.nodes().count()));
        host_->list.items().remove(any(host_->list.items().count()));
        host_->tree.nodes().setExpanded(1, !rarely(3));
    }
    void edits() {
        if (rarely(2))
            host_->tree.startLabelEdit(any(host_->tree.nodes().count()));
        else
            host_->list.startLabelEdit(any(host_->list.items().count()));
    }
    void types() {
        constexpr std::array keys{Qt::Key_A, Qt::Key_Escape, Qt::Key_Return, Qt::Key_Tab, Qt::Key_F2, Qt::Key_Down};
        if (host_->isVisible())
            QTest::keyClick(host_->windowHandle(), keys.at(static_cast<std::size_t>(random_.bounded(6))));
    }
    void ends() {
        host_->tree.endLabelEdit(rarely(2));
        host_->list.endLabelEdit(rarely(2));
    }
    void presses() {
        if (host_->isVisible())
            QTest::mousePress(host_->windowHandle(), Qt::LeftButton, {}, somewhere());
    }
    void moves() {
        if (host_->isVisible())
            QTest::mouseMove(host_->windowHandle(), somewhere());
    }
    void lets() {
        if (host_->isVisible())
            QTest::mouseRelease(host_->windowHandle(), Qt::LeftButton, {}, somewhere());
    }
    void carries() {
        host_->mode = rarely(2) ? Carrier::Mode::UntilClick : Carrier::Mode::UntilRelease;
        if (rarely(3))
            host_->carry(u"x"_s);
    }
    void arranges() { host_->list.setArrangement(static_cast<ListArrangement>(random_.bounded(3))); }
    void lives() { QCoreApplication::processEvents(); }

    QRandomGenerator random_;
    QPointer<TreeWithList> host_;
};

/// What must be so at every moment.
void expectSound(TreeWithList& host) {
    const auto stands = [](int which, bool there) { return which == 0 || there; };
    TreeView& tree = host.tree;
    EXPECT_TRUE(stands(tree.editedNode(), tree.nodes().contains(tree.editedNode())));
    EXPECT_TRUE(stands(tree.dropTarget(), tree.nodes().contains(tree.dropTarget())));
    EXPECT_TRUE(stands(host.list.editedItem(), host.list.items().contains(host.list.editedItem())));
    EXPECT_EQ(host.list.items().selected(), host.list.currentIndex().row() + 1);
    EXPECT_EQ(host.carrier.carries(), host.carrier.picture() != nullptr);
    for (const QWidget* const viewport : {tree.viewport(), host.list.viewport()}) {
        const auto* field = viewport->findChild<QLineEdit*>();
        const int edited = viewport == tree.viewport() ? tree.editedNode() : host.list.editedItem();
        EXPECT_EQ(!field->isHidden(), edited != 0);
    }
}

using HandsStorm = QuietTest;

} // namespace

TEST_F(HandsStorm, NothingThatHappensToTheWindowBreaksAnEditOrADrag) {
    for (const unsigned seed : {21U, 22U, 23U}) {
        Storm storm(seed);
        for (int step = 0; step < 1500 && !HasFailure(); ++step) {
            storm.step();
            if (storm.host())
                expectSound(*storm.host());
        }
    }
}

} // namespace velm
