#include "Value.h"
