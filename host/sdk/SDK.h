#pragma once
// Everything a module or a frame needs of the other side.

#include "SDKFrame.h"
#include "SDKModule.h"
