#pragma once

#include "engine/VelUtil.h"
#include "tests/viewer/Onlooker.h"

#include <QApplication>
#include <QDialog>

namespace velmora::test {

template <typename Dialog>
Dialog* openDialog()
{
    Dialog* const dialog = qobject_cast<Dialog*>(QApplication::activeModalWidget());
    return dialog && dialog->isVisible() && dialog->isEnabled() ? dialog : nullptr;
}

/// Acts on a dialog of that class as soon as it is open and can be used. Not from within a drawing,
/// which could not go on while the action waits for something.
template <typename Dialog>
class Answer : public Onlooker {
public:
    explicit Answer(std::function<void(Dialog&)> act)
        : Onlooker([] { return openDialog<Dialog>() && !VelUtilIsBusy(); }, [act] { act(*openDialog<Dialog>()); })
    {}
};

/// As the button that accepts does.
inline void accept(QDialog& dialog)
{
    QMetaObject::invokeMethod(&dialog, "accept");
}

} // namespace velmora::test
