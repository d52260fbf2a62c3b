#pragma once

// As before.
#include "integration/toolkit/qt4/chosen_toolkit/ClosingOfDialogs.h"
