#include "CATIXMLDOMDocumentBuilder.h"
