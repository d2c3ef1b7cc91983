#include "CATProductSource.h"

CATProductSource::~CATProductSource() = default;
