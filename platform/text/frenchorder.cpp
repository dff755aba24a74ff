#include "platform/text/frenchorder.h"

#include "platform/text/letters.h"

#include <algorithm>

namespace velm {
namespace {

constexpr std::size_t headSize = sizeof(quint64);

/// A sort key: the eight bytes of it that are compared at the moment, and where it lies in the store of all keys.
struct Key {
    quint64 head;
    std::size_t begin;
    quint32 size;
    int row;
};

/// Sorts by eight bytes at a time, each time only what was equal before: titles of one kind share long beginnings,
/// which are so looked at once and not at every comparison.
class Keys {
public:
    Keys(int count, const std::function<QString(int)>& text) {
        keys_.reserve(static_cast<std::size_t>(count));
        for (int row = 0; row < count; ++row) {
            const QByteArray key = sortKey(text(row));
            keys_.push_back({0, bytes_.size(), static_cast<quint32>(key.size()), row});
            bytes_.insert(bytes_.end(), key.begin(), key.end());
        }
    }

    std::vector<int> order(bool descending) {
        struct Run {
            std::size_t begin;
            std::size_t end;
            std::size_t depth;
        };
        std::vector<Run> waiting{{0, keys_.size(), 0}};
        while (!waiting.empty()) {
            const Run run = waiting.back();
            waiting.pop_back();
            sortAt(run.begin, run.end, run.depth, descending);
            for (std::size_t from = run.begin; from < run.end;) {
                std::size_t to = from + 1;
                while (to < run.end && keys_[to].head == keys_[from].head && more(keys_[from], run.depth) &&
                       more(keys_[to], run.depth))
                    ++to;
                if (to - from > 1)
                    waiting.push_back({from, to, run.depth + headSize});
                from = to;
            }
        }
        std::vector<int> rows;
        rows.reserve(keys_.size());
        for (const Key& key : keys_)
            rows.push_back(key.row);
        return rows;
    }

private:
    /// Bytes of the key from this depth on, no more than tell whether there are any behind its head.
    static std::size_t rest(const Key& key, std::size_t depth) {
        return std::min(key.size - std::min<std::size_t>(key.size, depth), headSize + 1);
    }
    static bool more(const Key& key, std::size_t depth) { return rest(key, depth) > headSize; }

    quint64 headOf(const Key& key, std::size_t depth) const {
        quint64 head = 0;
        const std::size_t end = std::min<std::size_t>(key.size, depth + headSize);
        for (std::size_t i = depth; i < depth + headSize; ++i)
            head = head << 8 | (i < end ? static_cast<unsigned char>(bytes_[key.begin + i]) : 0U);
        return head;
    }

    void sortAt(std::size_t begin, std::size_t end, std::size_t depth, bool descending) {
        const auto first = keys_.begin() + static_cast<std::ptrdiff_t>(begin);
        const auto last = keys_.begin() + static_cast<std::ptrdiff_t>(end);
        bool equal = true;
        for (auto key = first; key != last; ++key) {
            key->head = headOf(*key, depth);
            equal = equal && key->head == first->head && more(*key, depth);
        }
        if (equal) // by row already
            return;
        std::sort(first, last, [depth, descending](const Key& a, const Key& b) {
            if (a.head != b.head)
                return (a.head < b.head) != descending;
            const std::size_t restofa = rest(a, depth);
            const std::size_t restofb = rest(b, depth);
            return restofa == restofb ? a.row < b.row : (restofa < restofb) != descending;
        });
    }

    std::vector<Key> keys_;
    std::vector<char> bytes_;
};

} // namespace

std::vector<int> frenchOrder(int count, const std::function<QString(int row)>& text, bool descending) {
    return Keys(count, text).order(descending);
}

} // namespace velm
