#pragma once

#include "chosen_toolkit/ClosingOfDialogs.h"
