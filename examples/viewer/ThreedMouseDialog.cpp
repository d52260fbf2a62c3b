#include "ThreedMouseDialog.h"

#include "integration/intern/Mouse3DInput.h"

#include <QCheckBox>
#include <QDialogButtonBox>
#include <QEvent>
#include <QGridLayout>
#include <QLabel>
#include <QPushButton>
#include <QSlider>

namespace viewer {

namespace threedmouse = velmora::sdk::threedmouse;

namespace {

QString textOf(threedmouse::DeviceState_e state)
{
    switch (state) {
    case threedmouse::DeviceState_Connected:
        return ThreedMouseDialog::tr("Connected to the service for 3D mice.");
    case threedmouse::DeviceState_NoLibrary:
        return ThreedMouseDialog::tr("The library libspnav is not installed. Install it and look again.");
    case threedmouse::DeviceState_Lost:
        return ThreedMouseDialog::tr("The service for 3D mice, spacenavd, has ended. It is looked for now and then.");
    case threedmouse::DeviceState_NotStarted:
    case threedmouse::DeviceState_NoDaemon:
        break;
    }
    return ThreedMouseDialog::tr("The service for 3D mice, spacenavd, does not run. Start it and look again.");
}

} // namespace

ThreedMouseDialog::ThreedMouseDialog(QWidget* parent)
    : QDialog(parent), m_settings(ThreedMouseSettings::kept()), m_speed(new QSlider(Qt::Horizontal)),
      m_state(new QLabel)
{
    setWindowTitle(tr("3D Mouse"));
    QGridLayout* const grid = new QGridLayout(this);
    m_state->setObjectName(QLatin1String("state"));
    m_state->setWordWrap(true);
    grid->addWidget(m_state, 0, 0, 1, 2);
    QLabel* const speed = new QLabel(tr("S&peed"));
    speed->setBuddy(m_speed);
    m_speed->setObjectName(QLatin1String("speed"));
    m_speed->setRange(ThreedMouseSettings::SlowestSpeed, ThreedMouseSettings::FastestSpeed);
    m_speed->setValue(m_settings.speed);
    connect(m_speed, SIGNAL(valueChanged(int)), this, SLOT(takeOver()));
    grid->addWidget(speed, 1, 0);
    grid->addWidget(m_speed, 1, 1);
    m_turn = addMotion(*grid, "turn", tr("&Turn the surface"), tr("Turn the &other way"), m_settings.turn);
    m_move = addMotion(*grid, "move", tr("&Move"), tr("Move the othe&r way"), m_settings.move);
    m_zoom = addMotion(*grid, "zoom", tr("&Zoom"), tr("Zoom t&he other way"), m_settings.zoom);
    m_swap = addBox(QLatin1String("swap"), tr("&Swap the axes y and z"), m_settings.swapsYAndZ);
    m_swap->setToolTip(tr("Press the device down to zoom, and pull it to move"));
    grid->addWidget(m_swap, grid->rowCount(), 0, 1, 2);
    QDialogButtonBox* const buttons = new QDialogButtonBox(QDialogButtonBox::Close);
    QPushButton* const look = buttons->addButton(tr("&Look Again"), QDialogButtonBox::ActionRole);
    connect(look, SIGNAL(clicked()), this, SIGNAL(lookedFor()));
    connect(look, SIGNAL(clicked()), this, SLOT(showState()));
    connect(buttons, SIGNAL(rejected()), this, SLOT(reject()));
    grid->addWidget(buttons, grid->rowCount(), 0, 1, 2);
    showState();
}

ThreedMouseDialog::Choice ThreedMouseDialog::addMotion(QGridLayout& grid, const char* name, const QString& text,
                                                       const QString& reversed,
                                                       const ThreedMouseSettings::Motion& motion)
{
    const QString object = QLatin1String(name);
    const Choice choice = {addBox(object, text, motion.isUsed),
                           addBox(object + QLatin1String("Reversed"), reversed, motion.isReversed)};
    const int row = grid.rowCount();
    grid.addWidget(choice.used, row, 0);
    grid.addWidget(choice.reversed, row, 1);
    choice.reversed->setEnabled(motion.isUsed);
    connect(choice.used, SIGNAL(toggled(bool)), choice.reversed, SLOT(setEnabled(bool)));
    return choice;
}

QCheckBox* ThreedMouseDialog::addBox(const QString& name, const QString& text, bool checked)
{
    QCheckBox* const box = new QCheckBox(text, this);
    box->setObjectName(name);
    box->setChecked(checked);
    connect(box, SIGNAL(toggled(bool)), this, SLOT(takeOver()));
    return box;
}

ThreedMouseSettings::Motion ThreedMouseDialog::chosen(const Choice& choice)
{
    ThreedMouseSettings::Motion motion;
    motion.isUsed = choice.used->isChecked();
    motion.isReversed = choice.reversed->isChecked();
    return motion;
}

void ThreedMouseDialog::takeOver()
{
    m_settings.speed = m_speed->value();
    m_settings.turn = chosen(m_turn);
    m_settings.move = chosen(m_move);
    m_settings.zoom = chosen(m_zoom);
    m_settings.swapsYAndZ = m_swap->isChecked();
    m_settings.keep();
}

void ThreedMouseDialog::showState()
{
    m_state->setText(textOf(threedmouse::deviceState()));
}

// The service may have come or gone in the meantime.
bool ThreedMouseDialog::event(QEvent* event)
{
    if (event->type() == QEvent::WindowActivate)
        showState();
    return QDialog::event(event);
}

} // namespace viewer
