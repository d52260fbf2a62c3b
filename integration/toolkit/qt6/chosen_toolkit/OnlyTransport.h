#pragma once

// As since Qt 5.
#include "integration/toolkit/qt5/chosen_toolkit/OnlyTransport.h"
