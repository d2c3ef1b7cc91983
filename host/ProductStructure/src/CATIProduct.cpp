#include "CATIProduct.h"

// Out of line, so that the type information of the interfaces stands in this library alone.
CATIProduct::~CATIProduct() = default;
CATIMovable::~CATIMovable() = default;
CATILinkableObject::~CATILinkableObject() = default;
