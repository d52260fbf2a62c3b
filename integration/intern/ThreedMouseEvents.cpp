#include "integration/intern/ThreedMouseEvents.h"

#include <utility>

namespace velmora::sdk::integration::intern {

ThreedMouseEvents::ThreedMouseEvents(std::function<Audience()> audience, Callbacks callbacks)
    : m_audience(std::move(audience)), m_callbacks(std::move(callbacks))
{}

void ThreedMouseEvents::add(const ThreedMouseMessage& message)
{
    const bool goesOn = !m_waiting.empty() && m_waiting.back().kind == ThreedMouseMessage::Motion;
    if (goesOn && message.kind == ThreedMouseMessage::Motion)
        addMotion(m_waiting.back().motion, message.motion);
    else
        m_waiting.push_back(message);
}

// A callback may open a loop in which further messages come and this is called again: what came first is told first.
void ThreedMouseEvents::tell()
{
    while (!m_waiting.empty()) {
        const ThreedMouseMessage message = m_waiting.front();
        m_waiting.pop_front();
        note(message);
        switch (m_audience()) {
        case HearsAll:
            tellOf(message);
            break;
        case HearsEnds:
            tellWhatEnded(false, Buttons());
            break;
        case HearsNothing:
            break;
        }
    }
}

void ThreedMouseEvents::note(const ThreedMouseMessage& message)
{
    switch (message.kind) {
    case ThreedMouseMessage::Motion:
        m_moving = true;
        break;
    case ThreedMouseMessage::Rest:
        m_moving = false;
        break;
    case ThreedMouseMessage::Press:
    case ThreedMouseMessage::Release:
        m_down[std::size_t(message.button)] = message.kind == ThreedMouseMessage::Press;
        break;
    case ThreedMouseMessage::Gone:
        m_moving = false;
        m_down.reset();
        break;
    case ThreedMouseMessage::Other:
    case ThreedMouseMessage::OutOfStep:
        break;
    }
}

void ThreedMouseEvents::tellOf(const ThreedMouseMessage& message)
{
    if (message.kind == ThreedMouseMessage::Motion) {
        m_toldMoving = true;
        m_callbacks.motion(message.motion);
    } else if (message.kind == ThreedMouseMessage::Press && !m_toldDown[std::size_t(message.button)]) {
        tellOfButton(message.button, true);
    } else {
        tellWhatEnded(m_moving, m_down);
    }
}

void ThreedMouseEvents::rest()
{
    m_waiting.clear();
    m_moving = false;
    m_down.reset();
    tellEnds();
}

void ThreedMouseEvents::tellEnds()
{
    const Audience audience = m_audience();
    if (audience == HearsAll)
        tellWhatEnded(m_moving, m_down);
    else if (audience == HearsEnds)
        tellWhatEnded(false, Buttons());
}

void ThreedMouseEvents::tellWhatEnded(bool moving, const Buttons& down)
{
    const Buttons up = ~down;
    for (int button = 0; button < ThreedMouseMessage::ButtonCount; ++button)
        if (up[std::size_t(button)] && m_toldDown[std::size_t(button)])
            tellOfButton(button, false);
    if (m_toldMoving && !moving) {
        m_toldMoving = false;
        m_callbacks.endOfMotion();
    }
}

void ThreedMouseEvents::tellOfButton(int button, bool pressed)
{
    m_toldDown[std::size_t(button)] = pressed;
    MouseEventObservableInterface::ButtonActions action;
    action.button = button;
    action.pressed = pressed;
    m_callbacks.buttonAction(action);
}

} // namespace velmora::sdk::integration::intern
