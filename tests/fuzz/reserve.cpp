#include "reserve.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cstddef>
#include <cstdlib>
#include <cstring>
#include <new>
#include <sanitizer/asan_interface.h>
#include <sqlite3.h>
#include <vector>

namespace velm::fuzz {
namespace {

constexpr unsigned smallest = 4; // sizes are powers of two, by their exponents
constexpr unsigned largest = 17;
constexpr std::size_t slab = std::size_t(1) << 20U;

/// What stands before each piece; as long as the strictest alignment.
struct alignas(16) Head {
    Head* next; ///< of the pieces that wait for use
    int size;   ///< as it was asked for
};

class Reserve {
public:
    void* take(int size) {
        const unsigned kind = kindOf(size);
        if (kind > largest)
            return handed(static_cast<Head*>(std::malloc(sizeof(Head) + static_cast<std::size_t>(size))), size);
        Head*& first = waiting_.at(kind);
        Head* head = first;
        if (head != nullptr)
            first = head->next;
        else
            head = carved(std::size_t(1) << kind);
        __asan_unpoison_memory_region(head + 1, static_cast<std::size_t>(size));
        return handed(head, size);
    }

    void giveBack(void* piece) {
        Head* head = headOf(piece);
        const unsigned kind = kindOf(head->size);
        if (kind > largest) {
            std::free(head);
            return;
        }
        __asan_poison_memory_region(piece, static_cast<std::size_t>(head->size));
        head->next = waiting_.at(kind);
        waiting_.at(kind) = head;
    }

    static Head* headOf(void* piece) { return static_cast<Head*>(piece) - 1; }

private:
    static unsigned kindOf(int size) {
        const auto last = static_cast<unsigned>(size > 0 ? size - 1 : 0);
        return std::max(smallest, static_cast<unsigned>(std::bit_width(last)));
    }

    static void* handed(Head* head, int size) {
        if (head == nullptr)
            return nullptr;
        head->size = size;
        return head + 1;
    }

    /// A new piece, its content forbidden.
    Head* carved(std::size_t content) {
        const std::size_t whole = sizeof(Head) + content;
        if (left_ < whole) {
            slabs_.push_back(static_cast<std::byte*>(std::malloc(slab)));
            at_ = slabs_.back();
            left_ = slab;
        }
        auto* head = new (at_) Head();
        __asan_poison_memory_region(head + 1, content);
        at_ += whole;
        left_ -= whole;
        return head;
    }

    std::array<Head*, largest + 1> waiting_{};
    std::vector<std::byte*> slabs_;
    std::byte* at_ = nullptr;
    std::size_t left_ = 0;
};

Reserve& reserve() {
    static auto* only = new Reserve; // the engine may give back after everything else has gone
    return *only;
}

void* take(int size) {
    return reserve().take(size);
}

void giveBack(void* piece) {
    reserve().giveBack(piece);
}

int sizeOf(void* piece) {
    return piece != nullptr ? Reserve::headOf(piece)->size : 0;
}

void* resize(void* piece, int size) {
    void* other = take(size);
    if (other == nullptr)
        return nullptr;
    std::memcpy(other, piece, static_cast<std::size_t>(std::min(sizeOf(piece), size)));
    giveBack(piece);
    return other;
}

int roundUp(int size) {
    constexpr int step = 8;
    return (size + step - 1) / step * step;
}

int begin(void* /*data*/) {
    return SQLITE_OK;
}

void end(void* /*data*/) {}

} // namespace

void useReserve() {
    static const sqlite3_mem_methods methods{take, giveBack, resize, sizeOf, roundUp, begin, end, nullptr};
    if (sqlite3_config(SQLITE_CONFIG_MALLOC, &methods) != SQLITE_OK)
        std::abort();
}

} // namespace velm::fuzz
