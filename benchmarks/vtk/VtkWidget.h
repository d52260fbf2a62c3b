#pragma once

#include <QMainWindow>
#include <QString>
#include <memory>

namespace velmora::benchmark {

/// Writes a hilly surface of 2 × (side − 1)² triangles with a value at each point.
void writeModel(const QString& fileName, int side);

/// VTK's own widget with the model of a file in it, as VTK's examples show one: one actor.
class VtkWidget {
public:
    explicit VtkWidget(const QString& fileName);
    ~VtkWidget();
    VtkWidget(const VtkWidget&) = delete;
    VtkWidget& operator=(const VtkWidget&) = delete;

    QMainWindow& window();
    /// Returns when all of it is drawn.
    void draw();

private:
    struct Objects;
    std::unique_ptr<Objects> m_objects;
};

} // namespace velmora::benchmark
