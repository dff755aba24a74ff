#pragma once
// An array with a hole where the last change was: changes that walk from left to right move every element once.
#include <QtGlobal>

#include <algorithm>
#include <cstring>
#include <functional>
#include <memory>
#include <type_traits>
#include <utility>

namespace velm {

template <typename T>
class GapBuffer {
    static_assert(std::is_trivially_copyable_v<T>);

public:
    GapBuffer() = default;
    ~GapBuffer() = default;
    /// The copy has its hole at the end.
    GapBuffer(const GapBuffer& other) { assign(other); }
    GapBuffer& operator=(const GapBuffer& other) {
        if (this != &other)
            assign(other);
        return *this;
    }
    GapBuffer(GapBuffer&& other) noexcept
        : data_(std::move(other.data_)), capacity_(std::exchange(other.capacity_, 0)),
          gapStart_(std::exchange(other.gapStart_, 0)), gapEnd_(std::exchange(other.gapEnd_, 0)) {}
    GapBuffer& operator=(GapBuffer&& other) noexcept {
        data_ = std::move(other.data_);
        capacity_ = std::exchange(other.capacity_, 0);
        gapStart_ = std::exchange(other.gapStart_, 0);
        gapEnd_ = std::exchange(other.gapEnd_, 0);
        return *this;
    }

    qsizetype size() const { return capacity_ - (gapEnd_ - gapStart_); }

    // The elements are those before the hole, then those behind it.
    const T* first() const { return data_.get(); }
    qsizetype firstSize() const { return gapStart_; }
    const T* second() const { return data_.get() + gapEnd_; }
    qsizetype secondSize() const { return capacity_ - gapEnd_; }

    const T& operator[](qsizetype position) const { return data_[static_cast<std::size_t>(place(position))]; }
    T& operator[](qsizetype position) { return data_[static_cast<std::size_t>(place(position))]; }

    /// Calls call(pointer, count) for the one or two pieces of a range that lies in the buffer.
    template <typename Call>
    void pieces(qsizetype position, qsizetype count, Call call) const {
        const qsizetype before = std::clamp<qsizetype>(gapStart_ - position, 0, count);
        if (before > 0)
            call(data_.get() + position, before);
        if (count > before)
            call(data_.get() + place(position + before), count - before);
    }
    template <typename Call>
    void pieces(qsizetype position, qsizetype count, Call call) {
        const qsizetype before = std::clamp<qsizetype>(gapStart_ - position, 0, count);
        if (before > 0)
            call(data_.get() + position, before);
        if (count > before)
            call(data_.get() + place(position + before), count - before);
    }

    /// Puts `added` unset elements in the place of `removed` ones; the caller fills the array that is returned.
    T* replace(qsizetype position, qsizetype removed, qsizetype added) {
        if (position < gapStart_ && position + removed >= gapStart_) {
            // The hole lies inside what goes: it swallows both sides, and nothing moves.
            const qsizetype behind = position + removed - gapStart_;
            gapStart_ = position;
            gapEnd_ += behind;
        } else {
            moveGap(position);
            gapEnd_ += removed;
        }
        if (gapEnd_ - gapStart_ < added)
            grow(added);
        T* place = data_.get() + gapStart_;
        gapStart_ += added;
        return place;
    }

    /// Whether a pointer points into this buffer, which the next change may move.
    bool owns(const T* pointer) const {
        return std::greater_equal<>()(pointer, data_.get()) && std::less<>()(pointer, data_.get() + capacity_);
    }

    void clear() {
        gapStart_ = 0;
        gapEnd_ = capacity_;
    }

private:
    qsizetype place(qsizetype position) const {
        return position < gapStart_ ? position : position + (gapEnd_ - gapStart_);
    }

    static void move(T* to, const T* from, qsizetype count) {
        if (count > 0)
            std::memmove(to, from, static_cast<std::size_t>(count) * sizeof(T));
    }

    void moveGap(qsizetype position) {
        if (position < gapStart_) {
            const qsizetype count = gapStart_ - position;
            move(data_.get() + gapEnd_ - count, data_.get() + position, count);
            gapStart_ -= count;
            gapEnd_ -= count;
        } else if (position > gapStart_) {
            const qsizetype count = position - gapStart_;
            move(data_.get() + gapStart_, data_.get() + gapEnd_, count);
            gapStart_ += count;
            gapEnd_ += count;
        }
    }

    void grow(qsizetype added) {
        const qsizetype behind = secondSize();
        const qsizetype needed = gapStart_ + added + behind;
        const qsizetype capacity = std::max<qsizetype>(needed + needed / 2, 64);
        auto data = std::make_unique_for_overwrite<T[]>(static_cast<std::size_t>(capacity));
        move(data.get(), data_.get(), gapStart_);
        move(data.get() + capacity - behind, data_.get() + gapEnd_, behind);
        data_ = std::move(data);
        capacity_ = capacity;
        gapEnd_ = capacity - behind;
    }

    void assign(const GapBuffer& other) {
        const qsizetype size = other.size();
        if (capacity_ < size) {
            data_ = std::make_unique_for_overwrite<T[]>(static_cast<std::size_t>(size));
            capacity_ = size;
        }
        move(data_.get(), other.first(), other.firstSize());
        move(data_.get() + other.firstSize(), other.second(), other.secondSize());
        gapStart_ = size;
        gapEnd_ = capacity_;
    }

    std::unique_ptr<T[]> data_;
    qsizetype capacity_ = 0;
    qsizetype gapStart_ = 0;
    qsizetype gapEnd_ = 0;
};

} // namespace velm
