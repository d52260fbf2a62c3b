set(support_of_toolkit qt5/AccessibleText.cpp qt5/ProcessId.cpp qt5/ToolkitFacts.cpp qt5/ToolkitMessages.cpp qt5/ToolkitReader.cpp qt5/ToolkitWindows.cpp qt5/WheelEvents.cpp)
