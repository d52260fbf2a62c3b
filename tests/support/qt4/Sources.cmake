set(support_of_toolkit qt4/AccessibleText.cpp qt4/ProcessId.cpp qt4/ToolkitFacts.cpp qt4/ToolkitMessages.cpp qt4/ToolkitWindows.cpp qt4/WheelEvents.cpp)
