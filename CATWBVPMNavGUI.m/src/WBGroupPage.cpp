#include "WBGroupPage.h"

const CATEvent WBGroupPage::Changed("GroupChanged");
const CATEvent WBGroupPage::Said("GroupPageSaid");
