// A host that packs its own records tightly still agrees with the control.
#pragma pack(push, 1)
#include "scrivctl3.h"

#include <stddef.h>

#include "layout.inc"
typedef char hostPackingIsBack[sizeof(struct { char c; int i; }) == 5 ? 1 : -1];
#pragma pack(pop)
