#pragma once

#include <QMainWindow>
#include <QStringList>

class QActionGroup;
class QLabel;

namespace velmora {
namespace sdk {
namespace integration {
class GLDrawArea;
}
} // namespace sdk
} // namespace velmora

namespace viewer {

class Animation;
class AxisScales;
class ObjectMenu;
class OutputCommands;
class Panels;
class RecentFiles;
class ReloadCommand;
class SurfaceMenu;
class ViewHistory;
class ViewSteps;
class ViewTools;

/// The window: one drawing area, the tools to look at it from all sides, and what there is to know.
class MainWindow : public QMainWindow {
    Q_OBJECT

public:
    MainWindow();

    velmora::sdk::integration::GLDrawArea& drawArea() { return *m_area; }

public Q_SLOTS:
    /// Shows the file; on failure says why and keeps what was shown.
    void openFile(const QString& fileName);
    /// Opens files once the event loop runs.
    void openLater(const QStringList& fileNames);

protected:
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dropEvent(QDropEvent* event) override;

private Q_SLOTS:
    void showFile(const QString& fileName);
    void chooseFile();
    void openWaitingFiles();
    void setTool(QAction* action);
    void deselect();
    void showSelection();
    void showNote(const QString& note);
    void showPage(bool shown);
    void showWhetherPageShows();
    void about();

private:
    void createFileMenu();
    void createViewMenu();
    void addViewCommands();
    void createHelpMenu();
    void createStatusBar();
    void tellWhyNotOpened(const QString& fileName);
    void showData(const QString& name);
    void offerRotating(bool offered);
    QAction* addTool(QActionGroup& group, const char* iconName, const QString& text, const QString& key, int tool);

    velmora::sdk::integration::GLDrawArea* m_area;
    ViewTools* m_tools;
    RecentFiles* m_recentFiles = nullptr;
    OutputCommands* m_output;
    Animation* m_animation;
    AxisScales* m_scales;
    ViewHistory* m_history;
    ObjectMenu* m_objects;
    ViewSteps* m_steps;
    SurfaceMenu* m_surface;
    Panels* m_panels;
    ReloadCommand* m_reload;
    QToolBar* m_toolBar;
    QMenu* m_viewMenu;
    QAction* m_rotate;
    QAction* m_move;
    QAction* m_showPage;
    bool m_movesInsteadOfRotating = false; ///< nobody has chosen Move
    QLabel* m_description;
    QLabel* m_selection;
    QStringList m_waitingFiles;
};

} // namespace viewer
