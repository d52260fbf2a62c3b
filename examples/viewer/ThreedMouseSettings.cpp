#include "ThreedMouseSettings.h"

#include <QSettings>
#include <cmath>

namespace viewer {

namespace {

const char* const Group = "threedMouse";

QString key(const char* name)
{
    return QLatin1String(Group) + QLatin1Char('/') + QLatin1String(name);
}

struct MotionKeys {
    const char* used;
    const char* reversed;
    ThreedMouseSettings::Motion ThreedMouseSettings::*motion;
};

const MotionKeys Motions[] = {{"turn", "turnReversed", &ThreedMouseSettings::turn},
                              {"move", "moveReversed", &ThreedMouseSettings::move},
                              {"zoom", "zoomReversed", &ThreedMouseSettings::zoom}};

} // namespace

ThreedMouseSettings ThreedMouseSettings::kept()
{
    const QSettings settings;
    ThreedMouseSettings found;
    found.speed = qBound(SlowestSpeed, settings.value(key("speed"), UsualSpeed).toInt(), FastestSpeed);
    found.swapsYAndZ = settings.value(key("swapsYAndZ"), false).toBool();
    for (const MotionKeys& keys : Motions) {
        (found.*keys.motion).isUsed = settings.value(key(keys.used), true).toBool();
        (found.*keys.motion).isReversed = settings.value(key(keys.reversed), false).toBool();
    }
    return found;
}

void ThreedMouseSettings::keep() const
{
    QSettings settings;
    settings.setValue(key("speed"), speed);
    settings.setValue(key("swapsYAndZ"), swapsYAndZ);
    for (const MotionKeys& keys : Motions) {
        settings.setValue(key(keys.used), (this->*keys.motion).isUsed);
        settings.setValue(key(keys.reversed), (this->*keys.motion).isReversed);
    }
}

double ThreedMouseSettings::speedFactor() const
{
    constexpr double StepsToDouble = 2.0;
    return std::pow(2.0, (speed - UsualSpeed) / StepsToDouble);
}

} // namespace viewer
