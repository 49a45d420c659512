#pragma once

/// A stepped scale over a table of factors.
///
/// Ownership: the table is borrowed and has to outlive the object.
class FactorTableMixIn
{
public:
    /// @param factors  table of @p count factors
    /// @param index    the entry to start with, 0 to count - 1
    FactorTableMixIn(const double *factors, int count, int index) :
        m_factors(factors),
        m_factorCount(count),
        m_factorIndex(index)
    {
    }

    [[nodiscard]] double currentFactor() const { return m_factors[m_factorIndex]; }

protected:
    ~FactorTableMixIn() = default; // a mix-in is never destroyed through this base

    const double *m_factors;
    int m_factorCount;
    int m_factorIndex;
};
