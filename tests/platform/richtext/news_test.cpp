#include "platform/richtext/news.h"

#include <gtest/gtest.h>
#include <string>
#include <utility>

namespace velm {
namespace {

/// Writes down what it hears: t, s or p.
class Listener : public RichTextObserver {
public:
    explicit Listener(RichTextNews& news) : news_(news) { news.setObserver(this); }
    void richTextChanged() override {
        heard += 't';
        if (std::exchange(answers, false))
            news_.textChanged();
    }
    void richSelectionChanged() override { heard += 's'; }
    void richPropertiesChanged() override { heard += 'p'; }

    std::string heard;
    bool answers = false;

private:
    RichTextNews& news_;
};

} // namespace

TEST(RichTextNews, AreToldAtOnceWhileRedrawIsOn) {
    RichTextNews news;
    Listener listener(news);
    news.selectionChanged();
    news.textChanged();
    news.textChanged();
    news.propertiesChanged();
    EXPECT_EQ(listener.heard, "sttp");
    news.setRedraw(true);
    EXPECT_EQ(listener.heard, "sttp") << "nothing was kept";
}

TEST(RichTextNews, AreKeptWhileRedrawIsOffAndToldOnceInTheirOrder) {
    RichTextNews news;
    Listener listener(news);
    news.setRedraw(false);
    news.selectionChanged();
    news.textChanged();
    news.propertiesChanged();
    news.textChanged();
    EXPECT_EQ(listener.heard, "");
    news.setRedraw(false);
    EXPECT_EQ(listener.heard, "");
    news.setRedraw(true);
    EXPECT_EQ(listener.heard, "pts");
    news.setRedraw(false);
    news.setRedraw(true);
    EXPECT_EQ(listener.heard, "pts") << "each is told once";
}

TEST(RichTextNews, OnlyWhatChangedIsTold) {
    RichTextNews news;
    Listener listener(news);
    news.setRedraw(false);
    news.selectionChanged();
    news.setRedraw(true);
    EXPECT_EQ(listener.heard, "s");
}

TEST(RichTextNews, AChangeMadeByTheOneWhoHearsIsToldToo) {
    RichTextNews news;
    Listener listener(news);
    listener.answers = true;
    news.setRedraw(false);
    news.textChanged();
    news.selectionChanged();
    news.setRedraw(true);
    EXPECT_EQ(listener.heard, "tts");
}

TEST(RichTextNews, NobodyNeedsToListen) {
    RichTextNews news;
    news.textChanged();
    news.setRedraw(false);
    news.propertiesChanged();
    news.setRedraw(true);
    Listener listener(news);
    EXPECT_EQ(listener.heard, "") << "the past is not told again";
    news.setObserver(nullptr);
    news.textChanged();
    EXPECT_EQ(listener.heard, "");
}

} // namespace velm
