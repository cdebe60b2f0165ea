#include "scrivctl3.h"

#include <stddef.h>

#include "layout.inc"
