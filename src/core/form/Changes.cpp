// SPDX-License-Identifier: Apache-2.0
#include "core/form/Changes.h"

#include "core/model/Inputs.h"

#include <algorithm>
#include <map>
#include <tuple>

namespace tw {

namespace {

template <class... F> struct Overloaded : F... { using F::operator()...; };
template <class... F> Overloaded(F...) -> Overloaded<F...>;

// What an entry is a change of: entries of one key condense into one.
using Key = std::tuple<int, int, int, int, int>; // kind, form, control, index, property

Key keyOf(const ChangeEntry& e) {
    const int kind = static_cast<int>(e.index());
    return std::visit(Overloaded{
                          [&](const change::Input& c) {
                              return Key{kind, 0, c.index, 0, 0};
                          },
                          [&](const change::Property& c) {
                              return Key{kind, static_cast<int>(c.form), static_cast<int>(c.id.ctl), c.id.index,
                                         static_cast<int>(c.prop)};
                          },
                          [&](const change::FormProperty& c) {
                              return Key{kind, static_cast<int>(c.form), 0, 0, static_cast<int>(c.prop)};
                          },
                          [&](const auto&) {
                              return Key{kind, 0, 0, 0, 0};
                          },
                      },
                      e);
}

bool isMark(const ChangeEntry& e) {
    return std::holds_alternative<change::Typed>(e) || std::holds_alternative<change::Left>(e) ||
           std::holds_alternative<change::Checkpoint>(e);
}

// Takes the later entry's value after into the earlier one.
void extend(ChangeEntry& first, const ChangeEntry& later) {
    std::visit(
        [&](auto& f) {
            using T = std::decay_t<decltype(f)>;
            const T& l = std::get<T>(later);
            if constexpr (std::is_same_v<T, change::Saved>) {
                f.fileAfter = l.fileAfter;
                f.failedAfter = l.failedAfter;
            } else if constexpr (requires { f.after; }) {
                f.after = l.after;
            }
        },
        first);
}

bool unchanged(const ChangeEntry& e) {
    return std::visit(
        [](const auto& c) {
            using T = std::decay_t<decltype(c)>;
            if constexpr (std::is_same_v<T, change::Saved>)
                return c.fileBefore == c.fileAfter && c.failedBefore == c.failedAfter;
            else if constexpr (requires { c.after; })
                return c.before == c.after;
            else
                return false;
        },
        e);
}

template <class T> void addOnce(std::vector<T>& v, const T& x) {
    if (std::find(v.begin(), v.end(), x) == v.end()) v.push_back(x);
}

} // namespace

bool changesProject(const ChangeEntry& e) {
    return std::holds_alternative<change::Input>(e) || std::holds_alternative<change::Table>(e) ||
           std::holds_alternative<change::Counter>(e) || std::holds_alternative<change::Register>(e);
}

ChangeLog condense(const ChangeLog& log) {
    ChangeLog out;
    std::map<Key, size_t> at;
    for (const auto& e : log) {
        if (isMark(e)) continue;
        const Key k = keyOf(e);
        if (auto it = at.find(k); it != at.end()) {
            extend(out[it->second], e);
            continue;
        }
        at.emplace(k, out.size());
        out.push_back(e);
    }
    std::erase_if(out, unchanged);
    return out;
}

ChangeSet ChangeSet::of(const ChangeLog& log) {
    ChangeSet s;
    for (const auto& e : log)
        std::visit(
            Overloaded{
                [&](const change::Input& c) { addOnce(s.inputs, projectInputs()[static_cast<size_t>(c.index)]); },
                [&](const change::Table&) { s.table = true; },
                [&](const change::Counter&) { s.bookkeeping = true; },
                [&](const change::Register&) { s.bookkeeping = true; },
                [&](const change::Saved&) { s.bookkeeping = true; },
                [&](const change::Property& c) { addOnce(s.controls, Target(c.form, c.id)); },
                [&](const change::FormProperty& c) { addOnce(s.forms, c.form); },
                [&](const change::Rows&) { s.selection = true; },
                [&](const change::Focus&) { s.focus = true; },
                [&](const auto&) {},
            },
            e);
    return s;
}

bool ChangeSet::names(const Target& t) const {
    return std::find(controls.begin(), controls.end(), t) != controls.end();
}

void ChangeSet::merge(const ChangeSet& o) {
    for (const auto& i : o.inputs)
        addOnce(inputs, i);
    for (const auto& c : o.controls)
        addOnce(controls, c);
    for (const auto& f : o.forms)
        addOnce(forms, f);
    table = table || o.table;
    bookkeeping = bookkeeping || o.bookkeeping;
    focus = focus || o.focus;
    selection = selection || o.selection;
    if (o.lookAt) lookAt = o.lookAt;
    if (o.lookAtRow) lookAtRow = o.lookAtRow;
}

} // namespace tw
