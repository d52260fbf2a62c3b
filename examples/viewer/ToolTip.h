#pragma once

#include <QAction>
#include <QKeySequence>

namespace viewer {

/// The text of a tool tip for what a key does too.
inline QString withShortcut(const QString& text, const QKeySequence& shortcut)
{
    return text + QLatin1String(" (") + shortcut.toString(QKeySequence::NativeText) + QLatin1Char(')');
}

/// Gives the action its key, and a tool tip that tells it.
inline void setShortcut(QAction& action, const QKeySequence& shortcut)
{
    action.setShortcut(shortcut);
    action.setToolTip(withShortcut(action.toolTip(), shortcut));
}

} // namespace viewer
