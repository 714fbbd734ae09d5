#include "aldlib/payroll/EmployeeName.h"

#include <utility>

#include "aldlib/payroll/internal/WithoutThrowing.h"

namespace ald {

namespace {

// Blanks alone, not other white space.
void TrimRight(CString& sText) {
  sText.erase(sText.find_last_not_of(' ') + 1);
}

void TrimLeft(CString& sText) {
  sText.erase(0, sText.find_first_not_of(' '));
}

void Truncate(CString& sPart, int nWidth) {
  if (nWidth >= 0 && sPart.size() > static_cast<std::size_t>(nWidth)) {
    sPart.resize(static_cast<std::size_t>(nWidth));
  }
}

void AddInitial(CString& sText, const CString& sMiddle) {
  if (!sMiddle.empty()) sText += {' ', sMiddle.front(), '.'};
}

}  // namespace

CEmployeeName::CEmployeeName() : CEmployeeName(-1, -1, -1) {}

CEmployeeName::CEmployeeName(int nFirstWidth, int nMiddleWidth, int nLastWidth)
    : m_nFirstWidth(nFirstWidth), m_nMiddleWidth(nMiddleWidth), m_nLastWidth(nLastWidth) {
  CStdNameParserFactory factory;
  WithoutThrowing([&] { m_parser = factory.GetNameParser(); });
}

CEmployeeName::CEmployeeName(int nFirstWidth, int nMiddleWidth, int nLastWidth,
                             CStdNameParserFactory& factory)
    : m_nFirstWidth(nFirstWidth), m_nMiddleWidth(nMiddleWidth), m_nLastWidth(nLastWidth) {
  WithoutThrowing([&] { m_parser = factory.GetNameParser(); });
}

void CEmployeeName::SetSinglePartName(const CString& sName) {
  if (!WithoutThrowing([&] { m_sSinglePart = sName; })) m_sSinglePart.clear();
  m_sFirst.clear();
  m_sMiddle.clear();
  m_sLast.clear();
}

void CEmployeeName::SetMultiPartName(const CString& sFirst) {
  SetMultiPartName(sFirst, CString(), CString());
}

void CEmployeeName::SetMultiPartName(const CString& sFirst, const CString& sLast) {
  SetMultiPartName(sFirst, CString(), sLast);
}

void CEmployeeName::SetMultiPartName(const CString& sFirst, const CString& sMiddle,
                                     const CString& sLast) {
  const bool bOk = WithoutThrowing([&] {
    m_sFirst = sFirst;
    m_sMiddle = sMiddle;
    m_sLast = sLast;
  });
  if (!bOk) SetSinglePartName(CString());
  TruncateNameParts();
  m_sSinglePart.clear();
}

const CString& CEmployeeName::ReturnSinglePartName(PRNameOrder eOrder) {
  if (!WithoutThrowing([&] { MergeString(eOrder); })) m_sSinglePart.clear();
  return m_sSinglePart;
}

void CEmployeeName::ReturnMultiPartName(CString& sFirst, CString& sMiddle, CString& sLast) {
  const bool bOk = WithoutThrowing([&] {
    if (!m_sSinglePart.empty()) {
      m_parser.SetName(m_sSinglePart);
      m_parser.ParseName();
      m_sFirst = m_parser.GetFirst();
      m_sMiddle = m_parser.GetMiddleInitial();
      TrimRight(m_sMiddle);  // the initial of no middle name is a blank
      m_sLast = m_parser.GetLast();
      if (!m_parser.GetSuffix().empty()) m_sLast += ' ' + m_parser.GetSuffix();
    }
    TruncateNameParts();
    sFirst = m_sFirst;
    sMiddle = m_sMiddle;
    sLast = m_sLast;
  });
  if (bOk) return;
  sFirst.clear();
  sMiddle.clear();
  sLast.clear();
}

void CEmployeeName::MergeString(PRNameOrder eOrder) {
  if (!m_sFirst.empty() || !m_sMiddle.empty() || !m_sLast.empty()) {
    CString sMerged;
    if (eOrder == PRNameOrder::FirstNameFirst) {
      sMerged = m_sFirst;
      TrimRight(sMerged);
      AddInitial(sMerged, m_sMiddle);
      if (!m_sLast.empty()) sMerged += ' ' + m_sLast;
    } else {
      sMerged = m_sLast;
      TrimRight(sMerged);
      if (!m_sLast.empty() && !(m_sFirst.empty() && m_sMiddle.empty())) sMerged += ',';
      if (!m_sFirst.empty()) sMerged += ' ' + m_sFirst;
      AddInitial(sMerged, m_sMiddle);
    }
    m_sSinglePart = std::move(sMerged);
  }
  TrimRight(m_sSinglePart);
  TrimLeft(m_sSinglePart);
}

void CEmployeeName::TruncateNameParts() {
  Truncate(m_sFirst, m_nFirstWidth);
  Truncate(m_sMiddle, m_nMiddleWidth);
  Truncate(m_sLast, m_nLastWidth);
}

}  // namespace ald
