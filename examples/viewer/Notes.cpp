#include "Notes.h"

#include "engine/VelUtil.h"

#include <QCoreApplication>
#include <QStatusBar>

namespace viewer {

void tellFailure(QStatusBar& bar)
{
    if (VelUtilWasInterrupted())
        bar.showMessage(QCoreApplication::translate("Notes", "Stopped."), NoteMilliseconds);
    else
        VelUtilDialogLastMessageBox();
    VelUtilLastErrorMessageClear();
}

} // namespace viewer
