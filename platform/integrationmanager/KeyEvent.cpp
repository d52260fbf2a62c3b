#include "integrationmanager/KeyEvent.h"

namespace velmora::sdk::integration::intern {

KeyEvent::KeyEvent(KeyEventObservableInterface* source, int key, int modifiers)
    : m_source(source), m_key(key), m_modifiers(modifiers)
{}

} // namespace velmora::sdk::integration::intern
