#pragma once

#include "integration/glarea/GLDrawArea.h"

#include <QMainWindow>
#include <QString>

namespace velmora::benchmark {

/// A window with a drawing area of 1000 by 700 pixels over a running engine. GUI thread.
class Host {
public:
    Host(int argc, char** argv);
    ~Host();
    Host(const Host&) = delete;
    Host& operator=(const Host&) = delete;

    sdk::integration::GLDrawArea& area() { return m_area; }
    /// Loads the file and draws its full picture. Ends the program when it cannot.
    void open(const QString& fileName);

private:
    QMainWindow m_window;
    sdk::integration::GLDrawArea& m_area; ///< the window's
};

} // namespace velmora::benchmark
