#pragma once

#include <QObject>
#include <QtUiPlugin/QDesignerCustomWidgetInterface>

namespace velmora {
namespace designer {

/// Tells Qt Designer of the drawing area: where it stands in the box of widgets, what a form says of it, and what the
/// form shows in its place.
class DrawAreaPlugin : public QObject, public QDesignerCustomWidgetInterface {
    Q_OBJECT
    Q_PLUGIN_METADATA(IID QDesignerCustomWidgetInterface_iid)
    Q_INTERFACES(QDesignerCustomWidgetInterface)

public:
    QString name() const override;
    QString group() const override;
    QString toolTip() const override;
    QString whatsThis() const override;
    QString includeFile() const override;
    QIcon icon() const override;
    bool isContainer() const override;
    /// A placeholder; no engine is started and no OpenGL context created.
    QWidget* createWidget(QWidget* parent) override;
    QString domXml() const override;
};

} // namespace designer
} // namespace velmora
