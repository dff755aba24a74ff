#pragma once
// Row ids, in the order of a list: four bytes each, as long as none needs more. And which of them a list has, with a
// number for each.
#include <QtGlobal>

#include <algorithm>
#include <limits>
#include <unordered_map>
#include <vector>

namespace velm {

class Identites {
public:
    std::size_t nombre() const { return larges_.empty() ? etroites_.size() : larges_.size(); }
    qint64 operator[](std::size_t rang) const { return larges_.empty() ? etroites_[rang] : larges_[rang]; }
    qint64 plusgrande() const { return plusgrande_; }

    void reserve(std::size_t nombre) { etroites_.reserve(nombre); }
    void ajoute(qint64 id) {
        plusgrande_ = std::max(plusgrande_, id);
        if (larges_.empty() && id >= 0 && id <= std::numeric_limits<quint32>::max())
            etroites_.push_back(static_cast<quint32>(id));
        else
            elargit().push_back(id);
    }
    /// No more is to come.
    void serre() {
        etroites_.shrink_to_fit();
        larges_.shrink_to_fit();
    }

private:
    std::vector<qint64>& elargit() {
        if (larges_.empty())
            larges_.assign(etroites_.begin(), etroites_.end());
        etroites_ = {};
        return larges_;
    }

    std::vector<quint32> etroites_;
    std::vector<qint64> larges_;
    qint64 plusgrande_ = 0;
};

/// A number for each id of a list. Ids that lie close together, as those of a compiled base do, need no hashing.
class NombresDesIds {
public:
    explicit NombresDesIds(const Identites& ids) {
        constexpr qint64 lacune = 8;
        constexpr qint64 peu = 1024;
        const auto nombre = static_cast<qint64>(ids.nombre());
        serres_ = ids.plusgrande() < lacune * nombre + peu;
        if (serres_)
            tableau_.assign(static_cast<std::size_t>(ids.plusgrande()) + 1, absent);
        else
            table_.reserve(ids.nombre());
        for (std::size_t rang = 0; rang < ids.nombre(); ++rang)
            pose(ids[rang], 0);
    }

    /// Of an id of the list.
    void pose(qint64 id, quint32 nombre) {
        if (serres_ && id >= 0)
            tableau_[static_cast<std::size_t>(id)] = nombre;
        else
            table_[id] = nombre;
    }
    bool a(qint64 id) const { return de(id) != absent; }
    /// `absent` for an id that is not of the list.
    quint32 de(qint64 id) const {
        if (serres_ && id >= 0)
            return id < static_cast<qint64>(tableau_.size()) ? tableau_[static_cast<std::size_t>(id)] : absent;
        const auto la = table_.find(id);
        return la == table_.end() ? absent : la->second;
    }

    static constexpr quint32 absent = std::numeric_limits<quint32>::max();

private:
    bool serres_ = false;
    std::vector<quint32> tableau_;
    std::unordered_map<qint64, quint32> table_;
};

} // namespace velm
