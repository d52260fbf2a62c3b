#pragma once

#include <QSize>
#include <QString>
#include <QStringList>

namespace viewer {

/// What the command line asks for.
struct Options {
    /// Those that make a picture of one file come last.
    enum Task { ShowWindow, PrintHelp, PrintVersion, TakeSnapshot, ExportImage, PrintPage };

    /// Windows and images have no larger sides.
    static constexpr int LargestSide = 32768;
    static constexpr int MostDotsPerInch = 2400;
    static constexpr int MostSupersampling = 8;

    Task task = ShowWindow;
    QStringList files;
    QStringList modules; ///< with contents of other makers
    QString output;      ///< of a snapshot, an export or a print
    QSize size;          ///< of the picture or the window, not above LargestSide; invalid when not given
    int supersample = 1;
    int dotsPerInch = 0;      ///< of an export; 0: text grows and shrinks with the picture
    bool software = false;    ///< draws an export with software
    bool transparent = false; ///< exports without the white ground
    int paper = 0; ///< by the place of its name in EngineSession::paperNames(); the locale's if none is named
    bool landscape = false;
    bool slow = false;
    QString error; ///< what is wrong with the command line; empty when nothing is

    /// Whether the task makes a picture instead of a window.
    bool writes() const { return task >= TakeSnapshot; }
    /// Whether it takes a window, which a picture of the screen is taken of, too.
    bool showsWindow() const { return task <= TakeSnapshot; }
    QSize pictureSize() const { return size.isValid() ? size : QSize(1000, 700); }
};

Options parseOptions(const QStringList& arguments);

/// The text of `--help`.
QString helpText();

} // namespace viewer
