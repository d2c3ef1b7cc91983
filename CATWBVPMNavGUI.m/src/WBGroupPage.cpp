#include "WBGroupPage.h"

const CATEvent WBGroupPage::Changed("GroupChanged");
const CATEvent WBGroupPage::Said("GroupPageSaid");

void WBGroupPage::Say(const CATUnicodeString& word)
{
    m_word = word;
    Send(Said);
}
