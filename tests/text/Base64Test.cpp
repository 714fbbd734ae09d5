#include "aldlib/text/Base64.h"

#include <gtest/gtest.h>

#include <bitset>
#include <string>

#include "tests/text/GuardedBuffer.h"

namespace ald {
namespace {

const std::string kAlphabet = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";

// The definition, bit by bit: the text as one row of bits, cut into sixes.
std::string Encoded(const std::string& sText) {
  std::string sBits;
  for (const char ch : sText) sBits += std::bitset<8>(static_cast<unsigned char>(ch)).to_string();
  std::string sResult;
  for (std::size_t i = 0; i < sBits.size(); i += 6) {
    std::string sSix = sBits.substr(i, 6);
    sSix.resize(6, '0');
    sResult += kAlphabet[std::bitset<6>(sSix).to_ulong()];
  }
  while (sResult.size() % 4 != 0) sResult += '=';
  return sResult;
}

TEST(Base64, EncodesAsTheDefinitionDoesAndDecodesBack) {
  std::string sEveryByte;
  for (int i = 1; i < 256; ++i) sEveryByte += static_cast<char>(i);
  RandomText random;
  for (int nRound = 0; nRound < 5000; ++nRound) {
    const std::string sText = random.Text(40, sEveryByte);
    std::string sCoded = EncodeBase64(sText.c_str());
    ASSERT_EQ(sCoded, Encoded(sText));
    ASSERT_EQ(DecodeBase64(sCoded.c_str()), sText);
    // Padding may be missing, and what is not of the alphabet may stand anywhere.
    sCoded.erase(std::min(sCoded.find('='), sCoded.size()));
    sCoded.insert(static_cast<std::size_t>(random.Number(0, static_cast<int>(sCoded.size()))),
                  " \r\n*\xE9");
    ASSERT_EQ(DecodeBase64(sCoded.c_str()), sText);
  }
}

TEST(Base64, ReadsWhatItCanOfABrokenText) {
  const struct {
    const char* szCoded;
    const char* szText;
  } rows[] = {
      {"QQ==", "A"},      {"Q Q = =", "A"},   {"QUI", "AB"}, {"Q*Q==", "A"},
      {"", ""},           {nullptr, ""},      {"Q", ""},  // six bits are no byte
      {"QUI=QUJD", "AB"},                                 // padding is the end
      {"=QUJD", ""},      {"QUIAQUJD", "AB"},             // as is a zero byte
  };
  for (const auto& row : rows) EXPECT_EQ(DecodeBase64(row.szCoded), row.szText);
  EXPECT_EQ(EncodeBase64(nullptr), "");
}

}  // namespace
}  // namespace ald
