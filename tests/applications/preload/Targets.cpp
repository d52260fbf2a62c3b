#include "tests/applications/preload/ProgramState.h"

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QApplication>
#include <QGraphicsView>
#include <QMenu>
#include <QMenuBar>
#include <QTabBar>
#include <QTextStream>
#include <iterator>

namespace velmora::test {

namespace {

constexpr int FewestPixels = 3;

QWidget* frontWindow()
{
    if (QWidget* const popup = QApplication::activePopupWidget())
        return popup;
    if (QWidget* const dialog = QApplication::activeModalWidget())
        return dialog;
    if (QWidget* const window = QApplication::activeWindow())
        return window;
    for (QWidget* const window : QApplication::topLevelWidgets())
        if (window->isVisible())
            return window;
    return nullptr;
}

class TargetList {
public:
    void add(const char* kind, const QWidget& widget, const QRect& part)
    {
        const QRect seen = (widget.visibleRegion() & part).boundingRect();
        if (seen.width() < FewestPixels || seen.height() < FewestPixels)
            return;
        const QPoint corner = widget.mapToGlobal(seen.topLeft());
        m_text << kind << ':' << corner.x() << ',' << corner.y() << ',' << seen.width() << ',' << seen.height() << ' ';
    }
    std::string text()
    {
        m_text.flush();
        return m_words.toStdString();
    }

private:
    QString m_words;
    QTextStream m_text{&m_words};
};

template <typename Widget>
void addActions(TargetList& list, const char* kind, const Widget& widget)
{
    for (QAction* const action : widget.actions())
        if (action->isVisible() && !action->isSeparator())
            list.add(kind, widget, widget.actionGeometry(action));
}

const char* kindOf(const QWidget& widget)
{
    static const struct {
        const char* type;
        const char* kind;
    } kinds[] = {
        {"QAbstractButton", "button"}, {"QAbstractSpinBox", "spin"}, {"QScrollBar", "slider"},
        {"QAbstractSlider", "slider"}, {"QComboBox", "combo"},       {"QLineEdit", "text"},
        {"QTextEdit", "text"},         {"QPlainTextEdit", "text"},   {"QAbstractItemView", "view"},
        {"QGraphicsView", "view"},
    };
    // What a person clicks on is the viewport.
    const QWidget* const asked = widget.objectName() == QLatin1String("qt_scrollarea_viewport") && widget.parentWidget()
                                     ? widget.parentWidget()
                                     : &widget;
    for (const auto& each : kinds)
        if (asked->inherits(each.type))
            return each.kind;
    return "other";
}

void addWidget(TargetList& list, QWidget& widget)
{
    if (!widget.isVisible() || !widget.isEnabled())
        return;
    if (const QMenu* const menu = qobject_cast<QMenu*>(&widget))
        addActions(list, "item", *menu);
    else if (const QMenuBar* const bar = qobject_cast<QMenuBar*>(&widget))
        addActions(list, "menu", *bar);
    else if (const QTabBar* const tabs = qobject_cast<QTabBar*>(&widget))
        for (int i = 0; i < tabs->count(); ++i)
            list.add("tab", *tabs, tabs->tabRect(i));
    else
        list.add(kindOf(widget), widget, widget.rect());
}

} // namespace

std::string targets()
{
    TargetList list;
    if (QWidget* const window = frontWindow()) {
        if (window->windowType() == Qt::Popup)
            list.add("popup", *window, window->rect());
        else if (window->inherits("QFileDialog"))
            list.add("files", *window, window->rect());
        addWidget(list, *window);
        for (QWidget* const widget : window->findChildren<QWidget*>())
            if (widget->window() == window)
                addWidget(list, *widget);
    }
    return list.text();
}

} // namespace velmora::test
