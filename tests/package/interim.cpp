#include <aldlib/platform/Types.h>

#include <iostream>

int main() {
  const ald::CString text = "aldlib";
  std::cout << text << '\n';
}
