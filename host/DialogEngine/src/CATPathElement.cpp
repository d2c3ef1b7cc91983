#include "CATPathElement.h"

#include "CATStatus.h"

CATPathElement::CATPathElement(std::vector<CATBaseUnknown_var> objects)
    : m_objects(std::move(objects)), m_position(Size())
{}

const char* CATPathElement::ClassName() const
{
    return "CATPathElement";
}

CATBaseUnknown_var CATPathElement::Element(int position) const
{
    if (position < 1 || position > Size()) {
        return {};
    }
    return m_objects[static_cast<std::size_t>(position) - 1];
}

long CATPathElement::InitToTopElement()
{
    m_position = m_objects.empty() ? 0 : 1;
    return m_objects.empty() ? S_FALSE : S_OK;
}

long CATPathElement::InitToLeafElement()
{
    m_position = Size();
    return m_objects.empty() ? S_FALSE : S_OK;
}

long CATPathElement::ToParent()
{
    if (m_position <= 1) {
        return S_FALSE;
    }
    --m_position;
    return S_OK;
}

long CATPathElement::ToChild()
{
    if (m_position >= Size()) {
        return S_FALSE;
    }
    ++m_position;
    return S_OK;
}
