#pragma once

#include "CATDlgApplication.h"
#include "CATMsgCatalog.h"
#include "CATNumberLocale.h"

#include <gtest/gtest.h>

#include <array>
#include <memory>

/// The window toolkit, once for all tests of a program, in English and with decimal points:
/// testing::AddGlobalTestEnvironment(new Toolkit).
class Toolkit : public testing::Environment
{
public:
    void SetUp() override
    {
        CATMsgCatalog::SetLanguage("en");
        m_application = std::make_unique<CATDlgApplication>(m_count, m_arguments.data());
        CATUseNumberLocale("C");
    }
    void TearDown() override { m_application.reset(); }

private:
    int m_count = 1;
    std::array<char, 5> m_program{'t', 'e', 's', 't', '\0'};
    std::array<char*, 2> m_arguments{m_program.data(), nullptr};
    std::unique_ptr<CATDlgApplication> m_application;
};
