// The one file that knows every floor of the library.
