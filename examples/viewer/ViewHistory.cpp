#include "ViewHistory.h"

#include "Icon.h"
#include "IdleTime.h"
#include "ToolTip.h"
#include "engine/VelUtil.h"

#include <QApplication>
#include <QMenu>
#include <QToolBar>

namespace viewer {

using namespace velmora::sdk::integration;

namespace {

constexpr int RestMilliseconds = 500;
constexpr int MostViews = 100;

} // namespace

ViewHistory::ViewHistory(QMenu& menu, QToolBar& toolBar, QObject* parent)
    : QObject(parent), m_back(menu.addAction(icon("icons/left.png"), tr("Bac&k"), this, SLOT(back()))),
      m_forward(menu.addAction(icon("icons/right.png"), tr("For&ward"), this, SLOT(forward())))
{
    setShortcut(*m_back, QKeySequence(Qt::ALT + Qt::Key_Left));
    setShortcut(*m_forward, QKeySequence(Qt::ALT + Qt::Key_Right));
    toolBar.addAction(m_back);
    toolBar.addAction(m_forward);
    m_rest.setSingleShot(true);
    m_rest.setInterval(RestMilliseconds);
    connect(&m_rest, SIGNAL(timeout()), this, SLOT(rememberAtRest()));
    idleTime().addOnIdleListener(this);
    begin();
}

ViewHistory::~ViewHistory()
{
    idleTime().removeOnIdleListener(this);
}

bool ViewHistory::isAtRest() const
{
    return m_views.at(m_current) == VelUtilViewState();
}

void ViewHistory::begin()
{
    m_rest.stop();
    m_last = VelUtilViewState();
    m_views = QList<QByteArray>() << m_last;
    m_current = 0;
    showState();
}

// Whatever has changed the view, it shows by now.
void ViewHistory::onIdle(OnIdleObservableInterface&)
{
    const QByteArray view = VelUtilViewState();
    if (view == m_last)
        return;
    m_last = view;
    m_rest.start();
    showState();
}

void ViewHistory::rememberAtRest()
{
    if (QApplication::mouseButtons() == Qt::NoButton)
        remember();
    else
        m_rest.start();
}

void ViewHistory::remember()
{
    m_rest.stop();
    m_last = VelUtilViewState();
    if (m_last == m_views.at(m_current))
        return;
    m_views = m_views.mid(0, m_current + 1);
    m_views.append(m_last);
    if (m_views.size() > MostViews)
        m_views.removeFirst();
    m_current = static_cast<int>(m_views.size()) - 1;
    showState();
}

void ViewHistory::back()
{
    go(-1);
}

void ViewHistory::forward()
{
    go(1);
}

// A view that has not come to rest yet is one to come back to all the same.
void ViewHistory::go(int steps)
{
    remember();
    const int wanted = m_current + steps;
    if (wanted < 0 || wanted >= m_views.size() || !VelUtilViewSetState(m_views.at(wanted).constData()))
        return;
    m_current = wanted;
    m_last = m_views.at(m_current);
    showState();
    Q_EMIT viewChanged();
}

void ViewHistory::showState()
{
    m_back->setEnabled(m_current > 0 || !isAtRest());
    m_forward->setEnabled(m_current + 1 < m_views.size());
}

} // namespace viewer
