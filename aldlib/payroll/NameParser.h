#pragma once

#include <vector>

#include "aldlib/platform/Export.h"
#include "aldlib/platform/Types.h"

namespace ald {

// Splits a personal name, typed as one text, into first, middle and last name and a suffix.
//
//   CStdNameParserFactory factory;
//   CNameParser parser = factory.GetNameParser();
//   parser.SetName("Dr. John Q. Smith, Jr.");
//   parser.ParseName();                  // first "John", middle "Q.", last "Smith", suffix "Jr"
//
// A name with a comma in it reads last name first, any other first name first:
//
//   Smith, John Q   ->  John | Q | Smith       John Q Smith   ->  John | Q | Smith
//   Smith           ->  Smith | |              John Jr        ->  John | | , suffix Jr
//
// What counts as a suffix stands in one list. A word in it is taken out of the name where a suffix
// or title may stand: the first and the last word, the last word before the first comma, and the
// first word behind each comma. An include suffix becomes the suffix of the name if it has none
// yet, an ignore suffix is dropped. The first entry that matches decides, so a text that is in the
// list as both is what was added first. One word is taken at each place: "John Smith Jr PhD" has
// the last name "Jr".
//
// Every text can be parsed. Texts are bytes of code page 1252; white space, and the letters whose
// case is ignored, are those of ASCII alone. Where memory runs out a call stops and throws nothing;
// only ParseName says so.
class ALDLIB_EXPORT CNameParser {
 public:
  // Stores the name without white space at its ends, and empties the results.
  void SetName(const CString& sName);
  // Fills the results from the name; the same ones each time. Returns true, or false with empty
  // results if memory runs out.
  bool ParseName();

  // The name as SetName stored it, and the results, empty until ParseName. The middle name may be
  // several words with one blank between them. The suffix stands as typed, without a final period.
  CString GetFullName() const { return m_sFullName; }
  CString GetFirst() const { return m_sFirst; }
  CString GetMiddle() const { return m_sMiddle; }
  CString GetLast() const { return m_sLast; }
  CString GetSuffix() const { return m_sSuffix; }
  // The first character of the middle name, or a blank if there is none.
  char GetMiddleInitial() const { return m_sMiddle.empty() ? ' ' : m_sMiddle.front(); }

  // Whether ParseName has run since the last SetName.
  bool NameIsParsed() const { return m_bParsed; }

  // Whether "jr" is found when the list says "JR". It is, at first.
  void IgnoreSuffixCase(bool bIgnore) { m_bIgnoreSuffixCase = bIgnore; }
  bool IgnoreSuffixCase() const { return m_bIgnoreSuffixCase; }

  // The list is empty at first, and outlasts SetName. Nothing looks for duplicates.
  void AddIgnoreSuffix(const CString& sSuffix);
  void AddIncludeSuffix(const CString& sSuffix);
  // Remove the first entry of that kind, and say whether there was one. The text must match
  // exactly, whatever IgnoreSuffixCase says: a caller that removes "ab" means no entry "AB".
  bool RemoveIgnoreSuffix(const CString& sSuffix);
  bool RemoveIncludeSuffix(const CString& sSuffix);
  // Remove all entries of that kind; the others stay in their order.
  void ClearIgnoreSuffixes();
  void ClearIncludeSuffixes();
  // Clear, then add each text in its order.
  void SetIgnoreSuffixes(const CStringArray& suffixes);
  void SetIncludeSuffixes(const CStringArray& suffixes);

 protected:
  // The steps of ParseName, which catches what they throw when memory runs out.
  void ClearParsedResults();
  // Stores the suffix without its final period.
  void SetSuffix(const CString& sSuffix);
  // The index of the first entry that matches, -1 if none does. An empty text never matches.
  int FindInSuffixList(const CString& sToken) const;
  bool TokensAreEqual(const CString& sFirst, const CString& sSecond) const;
  // Takes the suffixes that begin a piece behind a comma out of the text. A later include suffix
  // replaces an earlier one here. A text without any stays exactly as it is.
  void RemoveSuffixesAfterComma(CString& sText);
  // Parse a text that has a name in it, after RemoveSuffixesAfterComma. Always true.
  bool FirstNameFirstParse(const CString& sText);
  bool LastNameFirstParse(const CString& sText);

 private:
  friend class CStdNameParserFactory;  // which has to know whether its lists went in whole

  struct SuffixEntry {
    CString sText;
    bool bIgnore = false;
  };

  bool TakeSuffix(const CString& sToken);
  void Add(const CString& sSuffix, bool bIgnore);
  void Set(const CStringArray& suffixes, bool bIgnore);
  bool Remove(const CString& sSuffix, bool bIgnore);
  void Clear(bool bIgnore);

  CString m_sFullName;
  CString m_sFirst;
  CString m_sMiddle;
  CString m_sLast;
  CString m_sSuffix;
  bool m_bIgnoreSuffixCase = true;
  std::vector<SuffixEntry> m_suffixes;
  bool m_bParsed = false;
};

// Makes a parser with the standard lists, upper case, each text bare and with a period behind it:
//
//   ignored    AB AM BA BBA BBS BD BL BS CE CPA DCL DD DDS DO DPA DPH DVM EDD EE FRS HC JD JP LHD
//              LITTD LLB LLD MA MC MD ME MP MS OD PHB PHD PHG RN SB SM STB VP ESQ MR MRS DR
//   included   JR SR II III IV V ESQ
//
// "ESQ" is ignored, since those entries come first. People whose last name is in a list lose it:
// "Andrew Ma" has no last name, and "Anna V" has the suffix "V". See CSurnameSafeNameParserFactory.
class ALDLIB_EXPORT CStdNameParserFactory {
 public:
  CStdNameParserFactory() = default;

  // Copy it and parse with the copy. The first call makes the lists; without memory for them the
  // parser lacks some, and the next call tries again.
  const CNameParser& GetNameParser();

  // The two lists, empty until the first GetNameParser.
  const CStringArray* IncludeSuffixes() const { return &m_includeSuffixes; }
  const CStringArray* IgnoreSuffixes() const { return &m_ignoreSuffixes; }

 protected:
  enum class Surnames { Lost, Kept };
  explicit CStdNameParserFactory(Surnames eSurnames) : m_eSurnames(eSurnames) {}

 private:
  void Initialize();

  bool m_bInitialized = false;
  CNameParser m_parser;
  CStringArray m_includeSuffixes;
  CStringArray m_ignoreSuffixes;
  Surnames m_eSurnames = Surnames::Lost;
};

// The standard lists without BA, DO, EE and MA, which are last names too, and without the single
// letter V, which is more often an initial than a fifth of the name:
//
//   Andrew Ma   ->  Andrew | | Ma          John Smith MD   ->  John | | Smith
//   Anna V      ->  Anna | | V             John Smith MA   ->  John | Smith | MA
class ALDLIB_EXPORT CSurnameSafeNameParserFactory : public CStdNameParserFactory {
 public:
  CSurnameSafeNameParserFactory() : CStdNameParserFactory(Surnames::Kept) {}
};

}  // namespace ald
