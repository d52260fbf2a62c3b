#include "DrawAreaPlugin.h"

#include "GLDrawArea.h"

#include <QIcon>

namespace velmora::designer {

QString DrawAreaPlugin::name() const
{
    return QString::fromLatin1(sdk::integration::GLDrawArea::staticMetaObject.className());
}

QString DrawAreaPlugin::group() const
{
    return QString::fromLatin1("Velmora");
}

QString DrawAreaPlugin::toolTip() const
{
    return QString::fromLatin1("OpenGL drawing area of the visualisation engine");
}

QString DrawAreaPlugin::whatsThis() const
{
    return QString::fromLatin1(
        "The widget that the engine draws into. Designer shows a placeholder; in the program the "
        "area shows a page from setPageManager() on.");
}

QString DrawAreaPlugin::includeFile() const
{
    return QString::fromLatin1("integration/glarea/GLDrawArea.h");
}

QIcon DrawAreaPlugin::icon() const
{
    return {}; // Designer then shows one of its own
}

bool DrawAreaPlugin::isContainer() const
{
    return false;
}

QWidget* DrawAreaPlugin::createWidget(QWidget* parent)
{
    return new sdk::integration::GLDrawArea(parent);
}

// The size is that of an area dropped into a form without a layout; it has no size hint.
QString DrawAreaPlugin::domXml() const
{
    const QString xml =
        QString::fromLatin1("<ui language=\"c++\" displayname=\"GLDrawArea\">"
                            "<widget class=\"%1\" name=\"drawArea\"><property name=\"geometry\">"
                            "<rect><x>0</x><y>0</y><width>400</width><height>300</height></rect></property></widget>"
                            "<customwidgets><customwidget><class>%1</class><extends>QWidget</extends>"
                            "<header>%2</header></customwidget></customwidgets></ui>");
    return xml.arg(name(), includeFile());
}

} // namespace velmora::designer
