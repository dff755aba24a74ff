#pragma once
// Formats by number: equal formats have one number, and a number stays valid for the life of the table.
#include "platform/richtext/format.h"

#include <QHash>

#include <deque>

namespace velm {

size_t qHash(const CharFormat& format, size_t seed = 0);
size_t qHash(const ParaFormat& format, size_t seed = 0);

/// Number 0 is always the default format. References stay valid while formats are added.
template <typename Format>
class FormatTable {
public:
    FormatTable() { clear(); }

    FormatId intern(const Format& format) {
        if (const auto found = ids_.constFind(format); found != ids_.constEnd())
            return *found;
        const auto id = static_cast<FormatId>(formats_.size());
        formats_.push_back(format);
        ids_.insert(format, id);
        return id;
    }

    /// A number that was never given stands for the default format.
    const Format& operator[](FormatId id) const { return formats_[id < formats_.size() ? id : 0]; }

    void clear() {
        formats_.clear();
        ids_.clear();
        intern(Format{});
    }

private:
    std::deque<Format> formats_;
    QHash<Format, FormatId> ids_;
};

} // namespace velm
