#include <aldlib/aldlib.h>

#include <iostream>

int main() {
  using namespace ald::literals;
  ald::CFixedDecimal<23, 9> price = 12.50_dec;
  price *= 3;
  price /= 7;
  std::cout << price.Round(2) << '\n';
}
