// The tables of a state machine: for each state a row from text to value. States sort as signed numbers.
// There are few states, the rows are short, and both are read far more often than written, so both are
// arrays.
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <iterator>
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
        // Returns the value under `key`, or null. The pointer is valid until the row changes.
        const Value* Find(std::string_view key) const {
            // The texts of a row mostly differ in length, and then nothing else is compared.
            for (const auto& [text, value] : entries) {
                if (text == key) return &value;
            }
            return nullptr;
        }

        // Keeps an earlier value. Returns whether the new one was stored.
        bool Insert(std::string_view key, Value value) {
            if (Find(key)) return false;
            entries.emplace_back(key, value);
            return true;
        }

        // Replaces an earlier value.
        void Assign(std::string_view key, Value value) {
            if (auto* present = const_cast<Value*>(Find(key))) {
                *present = value;
            } else {
                entries.emplace_back(key, value);
            }
        }

        void Erase(std::string_view key) noexcept {
            std::erase_if(entries, [key](const auto& entry) { return entry.first == key; });
        }

    private:
        std::vector<std::pair<std::string, Value>> entries;
    };

    // Returns the row of a state, or null. The pointer is valid until a row is added.
    Row* Find(std::uint16_t state) {
        auto row = LowerBound(state);
        return row != rows.end() && row->first == Key(state) ? &row->second : nullptr;
    }
    const Row* Find(std::uint16_t state) const { return const_cast<StateTable*>(this)->Find(state); }

    // Returns the row of a state, made at the first call.
    Row& At(std::uint16_t state) {
        auto row = LowerBound(state);
        if (row == rows.end() || row->first != Key(state)) row = rows.emplace(row, Key(state), Row());
        return row->second;
    }

    // Returns the states that have a row, ascending as signed numbers.
    std::vector<std::uint16_t> States() const {
        std::vector<std::uint16_t> states;
        states.reserve(rows.size());
        for (const auto& row : rows) states.push_back(static_cast<std::uint16_t>(row.first));
        return states;
    }

private:
    using Rows = std::vector<std::pair<std::int16_t, Row>>;

    static std::int16_t Key(std::uint16_t state) { return static_cast<std::int16_t>(state); }
    // Returns the first row whose state is not less. States are mostly numbered without gaps after the
    // wildcard, so the distance from the highest one is a good guess.
    typename Rows::iterator LowerBound(std::uint16_t state) {
        const std::int16_t key = Key(state);
        if (rows.empty() || key <= rows.front().first) return rows.begin();
        const std::ptrdiff_t guess = std::ssize(rows) - 1 - (rows.back().first - key);
        if (guess >= 0 && guess < std::ssize(rows) && rows.begin()[guess].first == key) {
            return rows.begin() + guess;
        }
        return std::lower_bound(rows.begin(), rows.end(), key,
                                [](const auto& row, std::int16_t wanted) { return row.first < wanted; });
    }

    Rows rows;
};

} // namespace brixen::pvn::pvn_workflow
