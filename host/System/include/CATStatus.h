#pragma once

/// Status values that operations return. Failure is negative: the failing values are 32-bit
/// patterns, sign-extended, and are compared and printed by their low 32 bits.
constexpr long S_OK = 0;                    ///< done
constexpr long S_FALSE = 1;                 ///< nothing to do, or an unknown item
constexpr long E_FAIL = -2147467259L;       ///< 80004005: a general failure
constexpr long E_INVALIDARG = -2147024809L; ///< 80070057: refused before anything changed
