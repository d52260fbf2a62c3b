#include "ui_qt/LaunchFileDialog.h"

#include "ui_qt/OverrideCursor.h"

#include <QApplication>
#include <QFileDialog>
#include <QFileInfo>
#include <QMainWindow>
#include <QPointer>
#include <QStringList>
#include <memory>

namespace velmora::ui {

namespace {

// Deletes the dialog unless its parent did so while it was open.
struct DialogOwner {
    ~DialogOwner() { delete dialog; }
    QPointer<QFileDialog> dialog;
};

bool canBeParent(const QWidget& window)
{
    return window.isVisible() && (window.windowType() == Qt::Window || window.windowType() == Qt::Dialog);
}

// A main window before any other. Null where the application shows none.
QWidget* firstWindow()
{
    QWidget* first = nullptr;
    const QWidgetList windows = QApplication::topLevelWidgets();
    for (QWidget* const window : windows) {
        if (!canBeParent(*window))
            continue;
        if (qobject_cast<QMainWindow*>(window))
            return window;
        if (!first)
            first = window;
    }
    return first;
}

// A dialog without a parent could fall behind the application's windows, whose input it blocks. None
// of them is active while the person works in another program.
QWidget* chooseParent()
{
    if (QWidget* const active = QApplication::activeWindow())
        return active;
    QWidget* const modal = QApplication::activeModalWidget();
    return modal ? modal : firstWindow();
}

// A person who is to choose a file does not wait.
std::unique_ptr<OverrideCursor> arrowInPlaceOfAnother()
{
    const QCursor* const cursor = QApplication::overrideCursor();
    if (!cursor || cursor->shape() == Qt::ArrowCursor)
        return nullptr;
    return std::make_unique<OverrideCursor>(Qt::ArrowCursor);
}

QStringList toStringList(const std::vector<std::string>& texts)
{
    QStringList list;
    for (const std::string& text : texts)
        list.append(QString::fromUtf8(text.c_str()));
    return list;
}

void setFilters(QFileDialog& dialog, const std::vector<std::string>& filters, int initialFilter)
{
    // As one text, because only that form takes filters apart that were joined by ";;".
    dialog.setNameFilter(toStringList(filters).join(QString::fromLatin1(";;")));
    const QStringList offered = dialog.nameFilters();
    if (initialFilter >= 0 && initialFilter < offered.size())
        dialog.selectNameFilter(offered.at(initialFilter));
}

// Opens the dialog in a folder, or in the folder of a file with the file's name filled in.
void offer(QFileDialog& dialog, const std::string& name)
{
    const QFileInfo offered(QString::fromUtf8(name.c_str()));
    if (offered.isDir()) {
        dialog.setDirectory(offered.absoluteFilePath());
        return;
    }
    if (offered.absoluteDir().exists())
        dialog.setDirectory(offered.absoluteDir());
    dialog.selectFile(offered.fileName());
}

QFileDialog::FileMode fileMode(bool multiple, bool save)
{
    // A dialog for one file serves to name a new one too, also when it is not made for saving.
    return multiple && !save ? QFileDialog::ExistingFiles : QFileDialog::AnyFile;
}

void setUp(QFileDialog& dialog, const std::vector<std::string>& filters, const std::vector<std::string>& offered,
           bool multiple, bool save, int initialFilter)
{
    // The toolkit's own dialog is the same on every desktop.
    dialog.setOption(QFileDialog::DontUseNativeDialog, true);
    dialog.setAcceptMode(save ? QFileDialog::AcceptSave : QFileDialog::AcceptOpen);
    dialog.setFileMode(fileMode(multiple, save));
    setFilters(dialog, filters, initialFilter);
    if (!offered.empty())
        offer(dialog, offered.front());
}

} // namespace

bool LaunchFileDialog(std::vector<std::string>& selected, int& filterIndex, const std::string& title,
                      const std::vector<std::string>& filters, const std::vector<std::string>& offered, bool multiple,
                      bool save, int initialFilter)
{
    const DialogOwner owner{new QFileDialog(chooseParent(), QString::fromUtf8(title.c_str()))};
    setUp(*owner.dialog, filters, offered, multiple, save, initialFilter);
    const std::unique_ptr<OverrideCursor> arrow = arrowInPlaceOfAnother();

    // When its parent is destroyed, the dialog goes with it; that counts as not confirmed.
    if (owner.dialog->exec() != QDialog::Accepted || !owner.dialog)
        return false;
    const QStringList chosen = owner.dialog->selectedFiles();
    if (chosen.isEmpty())
        return false;
    selected.clear();
    for (const QString& name : chosen)
        selected.push_back(name.toUtf8().constData());
    filterIndex = static_cast<int>(owner.dialog->nameFilters().indexOf(owner.dialog->selectedNameFilter()));
    return true;
}

} // namespace velmora::ui
