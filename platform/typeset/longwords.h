#pragma once
// Stretches of a text in which no line may end, longer than any line. To break a line by words the text engine walks to
// the end of the word that does not fit, for every line of it again; within such a stretch lines are broken anywhere,
// which gives the same lines.
#include <QStringView>

#include <vector>

namespace velm {

class LongWords {
public:
    /// Lines hold fewer characters, but for those of the smallest type or without width.
    static constexpr int longest = 512;

    explicit LongWords(QStringView text);

    bool isEmpty() const { return words_.empty(); }
    /// Whether more than a line's characters follow `position` before a line may end. Positions must not descend.
    bool goesOn(int position);
    /// Where the stretch ends of which goesOn() told last.
    int end() const { return words_[current_].to; }
    /// The characters from a position to the end of the stretch around it; 0 outside.
    int restAt(int position) const;

private:
    struct Word {
        int from = 0;
        int to = 0;
    };
    void addWords(QStringView text, int offset);

    std::vector<Word> words_;
    std::size_t current_ = 0;
};

} // namespace velm
