#include "tests/applications/preload/ProgramState.h"

#include "engine/VelUtil.h"

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QAbstractSlider>
#include <QApplication>
#include <QGraphicsScene>
#include <QGraphicsView>
#include <QStringList>

namespace velmora::test {

namespace {

QString describe(const QWidget& widget)
{
    return QString::fromLatin1("%1 \"%2\"").arg(widget.metaObject()->className(), widget.objectName());
}

QString classOf(const QWidget* widget)
{
    return QString::fromLatin1(widget ? widget->metaObject()->className() : "-");
}

// What the view is doing is told to derived classes only.
struct ViewState : QAbstractItemView {
    static bool isHalfDone(const QAbstractItemView& view)
    {
        const State state = (view.*(&ViewState::state))();
        return state == DraggingState || state == DragSelectingState;
    }
};

void findProblemsOf(const QWidget& widget, QStringList& found)
{
    if (const auto* const button = qobject_cast<const QAbstractButton*>(&widget)) {
        if (button->isDown())
            found << describe(widget) + QString::fromLatin1(" \"%1\" is down").arg(button->text());
    } else if (const auto* const slider = qobject_cast<const QAbstractSlider*>(&widget)) {
        if (slider->isSliderDown())
            found << describe(widget) + QLatin1String(" is held");
    } else if (const auto* const view = qobject_cast<const QAbstractItemView*>(&widget)) {
        // The list of a combo box is left in the middle when it goes, and begins anew when it comes.
        if (view->isVisible() && ViewState::isHalfDone(*view))
            found << describe(widget) + QLatin1String(" is being dragged");
    } else if (const auto* const graphics = qobject_cast<const QGraphicsView*>(&widget)) {
        if (graphics->scene() && graphics->scene()->mouseGrabberItem())
            found << describe(widget) + QLatin1String(" has an item that holds the mouse");
    }
}

void findGrabs(QStringList& found)
{
    if (QWidget::mouseGrabber())
        found << describe(*QWidget::mouseGrabber()) + QLatin1String(" grabs the mouse");
    if (QWidget::keyboardGrabber())
        found << describe(*QWidget::keyboardGrabber()) + QLatin1String(" grabs the keyboard");
    if (QApplication::mouseButtons() != Qt::NoButton)
        found << QLatin1String("the toolkit takes a mouse button for pressed");
    if (QApplication::overrideCursor())
        found << QLatin1String("there is an override cursor");
}

} // namespace

std::string whatIsOpen()
{
    return QString::fromLatin1("busy=%1 popup=%2 modal=%3")
        .arg(VelUtilIsBusy())
        .arg(classOf(QApplication::activePopupWidget()), classOf(QApplication::activeModalWidget()))
        .toStdString();
}

std::string problems()
{
    QStringList found;
    findGrabs(found);
    for (const QWidget* const widget : QApplication::allWidgets())
        findProblemsOf(*widget, found);
    return found.join("; ").toStdString();
}

void repaintEverything()
{
    for (QWidget* const widget : QApplication::allWidgets())
        if (widget->isVisible())
            widget->update();
}

} // namespace velmora::test
