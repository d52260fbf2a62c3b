#include "tests/viewer/TempFolder.h"

#include <QByteArray>
#include <QDir>
#include <QFile>
#include <cmath>
#include <cstdlib>
#include <filesystem>
#include <stdexcept>

namespace velmora::test {

TempFolder::TempFolder()
{
    QByteArray name = QFile::encodeName(QDir::tempPath() + QLatin1String("/viewer_test_XXXXXX"));
    if (!mkdtemp(name.data()))
        throw std::runtime_error("A temporary folder could not be made.");
    m_path = QFile::decodeName(name);
}

TempFolder::~TempFolder()
{
    std::error_code ignored;
    std::filesystem::remove_all(QFile::encodeName(m_path).constData(), ignored);
}

QString TempFolder::file(const char* name) const
{
    return m_path + QLatin1Char('/') + QString::fromUtf8(name);
}

QString TempFolder::write(const char* name, const QByteArray& content) const
{
    QFile file(this->file(name));
    if (!file.open(QIODevice::WriteOnly) || file.write(content) != content.size())
        throw std::runtime_error("A temporary file could not be written.");
    return file.fileName();
}

QString TempFolder::writeGrid(int side) const
{
    QByteArray text = "ncols " + QByteArray::number(side) + "\nnrows " + QByteArray::number(side) +
                      "\nxllcorner 0\nyllcorner 0\ncellsize 10\nNODATA_value -9999\n";
    for (int row = 0; row < side; ++row) {
        for (int column = 0; column < side; ++column) {
            const double x = 2.0 * column / (side - 1) - 1.0;
            const double y = 2.0 * row / (side - 1) - 1.0;
            text += QByteArray::number(100 * std::exp(-2 * (x * x + y * y)) + 20 * x, 'f', 3) + ' ';
        }
        text += '\n';
    }
    return write("hill.asc", text);
}

QString TempFolder::writeTable() const
{
    QByteArray text = "x,rising,waving\n";
    for (int i = 0; i < 40; ++i)
        text += QByteArray::number(i) + ',' + QByteArray::number(i * 0.5) + ',' +
                QByteArray::number(10 + 8 * std::sin(i * 0.3)) + '\n';
    return write("lines.csv", text);
}

} // namespace velmora::test
