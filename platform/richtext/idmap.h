#pragma once
// What becomes of the formats of a stretch, asked once for each. Private to this folder.
#include "platform/richtext/format.h"

#include <QHash>

#include <optional>
#include <utility>

namespace velm {

/// Remembers what a function gave for each id, the last one at hand.
template <typename Make>
class IdMap {
public:
    explicit IdMap(Make make) : make_(std::move(make)) {}
    FormatId operator()(FormatId id) {
        if (!last_ || last_->first != id) {
            auto found = ids_.constFind(id);
            if (found == ids_.constEnd())
                found = ids_.insert(id, make_(id));
            last_ = {id, *found};
        }
        return last_->second;
    }

private:
    Make make_;
    QHash<FormatId, FormatId> ids_;
    std::optional<std::pair<FormatId, FormatId>> last_;
};

} // namespace velm
