#pragma once

namespace ald {

// Makes the filing statuses and the list of states be read again. For the unloading of the library.
void ForgetTaxInfo();

}  // namespace ald
