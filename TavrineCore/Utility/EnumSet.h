#pragma once

#include "Foundation/EnumSet.h"
#include "TavrineCore/Imports.h"
