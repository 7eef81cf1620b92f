// The table behind a state machine: per state a row from text to value. States sort as signed numbers, texts
// by bytes with the shorter first. The rows are short and are read far more often than written, so both
// levels are sorted arrays.
#pragma once

#include <algorithm>
#include <cstdint>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace brixen::pvn::pvn_workflow {

template <class Value>
class StateTable {
public:
    class Row {
    public:
        // The value under `key`, or null. The pointer is good until the row changes.
        const Value* Find(std::string_view key) const {
            auto entry = LowerBound(key);
            return entry != entries.end() && entry->first == key ? &entry->second : nullptr;
        }

        // Keeps a value that is there already. Returns whether the new one was stored.
        bool Insert(std::string_view key, Value value) {
            auto entry = LowerBound(key);
            if (entry != entries.end() && entry->first == key) return false;
            entries.emplace(entry, std::string(key), value);
            return true;
        }

        // Replaces a value that is there already.
        void Assign(std::string_view key, Value value) {
            if (auto* present = const_cast<Value*>(Find(key))) {
                *present = value;
            } else {
                Insert(key, value);
            }
        }

        void Erase(std::string_view key) noexcept {
            auto entry = LowerBound(key);
            if (entry != entries.end() && entry->first == key) entries.erase(entry);
        }

    private:
        using Entries = std::vector<std::pair<std::string, Value>>;

        typename Entries::const_iterator LowerBound(std::string_view key) const {
            return std::lower_bound(
                entries.begin(), entries.end(), key,
                [](const auto& entry, std::string_view wanted) { return entry.first < wanted; });
        }

        Entries entries;
    };

    // The row of a state, or null.
    Row* Find(std::uint16_t state) {
        auto row = LowerBound(state);
        return row != rows.end() && row->first == Key(state) ? &row->second : nullptr;
    }
    const Row* Find(std::uint16_t state) const { return const_cast<StateTable*>(this)->Find(state); }

    // The row of a state, made if it is not there.
    Row& At(std::uint16_t state) {
        auto row = LowerBound(state);
        if (row == rows.end() || row->first != Key(state)) row = rows.emplace(row, Key(state), Row());
        return row->second;
    }

    // How many states have a row, and which one stands at a place in the order of the states.
    std::size_t Size() const { return rows.size(); }
    std::uint16_t StateAt(std::size_t place) const { return static_cast<std::uint16_t>(rows[place].first); }

private:
    using Rows = std::vector<std::pair<std::int16_t, Row>>;

    static std::int16_t Key(std::uint16_t state) { return static_cast<std::int16_t>(state); }
    typename Rows::iterator LowerBound(std::uint16_t state) {
        return std::lower_bound(rows.begin(), rows.end(), Key(state),
                                [](const auto& row, std::int16_t wanted) { return row.first < wanted; });
    }

    Rows rows;
};

} // namespace brixen::pvn::pvn_workflow
