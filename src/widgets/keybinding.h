#pragma once

#include <QKeyEvent>

/// A row of a table of keys: what a key does to an `Owner`.
template <typename Owner>
struct KeyBinding {
    int key;
    Qt::KeyboardModifiers modifiers; ///< that must be held; others may be held too and are told to `action`
    void (Owner::*action)(int direction, Qt::KeyboardModifiers modifiers);
    int direction = 0; ///< or what else it is told
};

/// Does to `owner` what the first of `rows` that `event` fits says; false where it fits none.
template <typename Owner, std::size_t count>
bool actOnKey(Owner *owner, const KeyBinding<Owner> (&rows)[count], const QKeyEvent &event)
{
    for (const KeyBinding<Owner> &row : rows) {
        if (event.key() == row.key && (event.modifiers() & row.modifiers) == row.modifiers) {
            (owner->*row.action)(row.direction, event.modifiers());
            return true;
        }
    }
    return false;
}
