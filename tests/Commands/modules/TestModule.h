#pragma once

#include "CATCommand.h"
#include "WBExport.h"

// The little modules that the loader's tests load: one works, each of the others is named after the
// one thing that is wrong with it.
