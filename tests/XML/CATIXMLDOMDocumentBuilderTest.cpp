#include "CATIXMLDOMDocumentBuilder.h"

#include <gtest/gtest.h>
