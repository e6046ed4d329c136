#include "editor/edithistory.h"

bool EditState::operator==(const EditState& o) const
{
    return beginMs == o.beginMs && endMs == o.endMs && fadeInOn == o.fadeInOn &&
           fadeInSeconds == o.fadeInSeconds && fadeOutOn == o.fadeOutOn &&
           fadeOutSeconds == o.fadeOutSeconds && volume == o.volume && normalize == o.normalize &&
           kind == o.kind;
}

void CEditHistory::reset(const EditState& state)
{
    m_undo.clear();
    m_redo.clear();
    m_current = state;
}

bool CEditHistory::commit(const EditState& state)
{
    if (state == m_current)
        return false;
    m_undo.push_back(m_current);
    if (m_undo.size() > static_cast<std::size_t>(kDepth))
        m_undo.pop_front();
    m_redo.clear();
    m_current = state;
    return true;
}

bool CEditHistory::undo(EditState* out)
{
    if (m_undo.empty())
        return false;
    m_redo.push_back(m_current);
    m_current = m_undo.back();
    m_undo.pop_back();
    *out = m_current;
    return true;
}

bool CEditHistory::redo(EditState* out)
{
    if (m_redo.empty())
        return false;
    m_undo.push_back(m_current);
    m_current = m_redo.back();
    m_redo.pop_back();
    *out = m_current;
    return true;
}
