#include "ui_qt/LaunchFileDialog.h"

#include <QApplication>
#include <QFileDialog>
#include <QFileInfo>
#include <QStringList>

namespace velmora::ui {

namespace {

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

} // namespace

bool LaunchFileDialog(std::vector<std::string>& selected, int& filterIndex, const std::string& title,
                      const std::vector<std::string>& filters, const std::vector<std::string>& offered, bool multiple,
                      bool save, int initialFilter)
{
    QFileDialog dialog(QApplication::activeWindow(), QString::fromUtf8(title.c_str()));
    // The toolkit's own dialog is the same on every desktop.
    dialog.setOption(QFileDialog::DontUseNativeDialog, true);
    dialog.setAcceptMode(save ? QFileDialog::AcceptSave : QFileDialog::AcceptOpen);
    dialog.setFileMode(fileMode(multiple, save));
    setFilters(dialog, filters, initialFilter);
    if (!offered.empty())
        offer(dialog, offered.front());

    if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty())
        return false;
    selected.clear();
    const QStringList chosen = dialog.selectedFiles();
    for (const QString& name : chosen)
        selected.push_back(name.toUtf8().constData());
    filterIndex = static_cast<int>(dialog.nameFilters().indexOf(dialog.selectedNameFilter()));
    return true;
}

} // namespace velmora::ui
