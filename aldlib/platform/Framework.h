#pragma once

#include <cstdint>

#include "aldlib/platform/Export.h"
#include "aldlib/platform/Types.h"

namespace ald {

// The least that the library needs of the application framework: the exceptions that an
// application's catch blocks hand to HandleCatch, none of which the library throws itself, the
// object that stands for a window, and the base of objects that an application may keep in its own
// collections.

class ALDLIB_EXPORT CException {
 public:
  virtual ~CException();

  // Writes the exception's own message, cut at nMaxError - 1 characters and terminated. Returns
  // false if it has none: the text is then empty. A null buffer or no room gives false.
  virtual bool GetErrorMessage(char* szError, unsigned nMaxError) noexcept;
};

// A failure reported by a component, with its status code.
class ALDLIB_EXPORT COleException : public CException {
 public:
  ~COleException() override;

  std::int32_t m_sc = 0;
};

// The user has been told already and the operation is off.
class ALDLIB_EXPORT CUserException : public CException {
 public:
  ~CUserException() override;
};

// What tells an object's class at run time.
struct CRuntimeClass {
  const char* m_lpszClassName;
};

class CArchive;      // of the application's framework; the library only passes it on
class CDumpContext;  // likewise

// The base of the framework's objects. The library's own have nothing to store and nothing to
// check, so that Serialize, AssertValid and Dump do nothing.
class ALDLIB_EXPORT CObject {
 public:
  virtual CRuntimeClass* GetRuntimeClass() const;
  virtual ~CObject();
  virtual void Serialize(CArchive& archive);
  virtual void AssertValid() const;
  virtual void Dump(CDumpContext& context) const;

 protected:
  CObject() = default;
  CObject(const CObject&) = default;
  CObject& operator=(const CObject&) = default;
};

// The framework's object for a window. It owns nothing: the window lives and dies on the desktop.
class ALDLIB_EXPORT CWnd {
 public:
  CWnd() = default;
  CWnd(const CWnd&) = delete;
  CWnd& operator=(const CWnd&) = delete;
  virtual ~CWnd();

  // Returns the object for the window, the same one each time until DeleteTempMap; null for the
  // window 0. The framework keeps it.
  static CWnd* FromHandle(WindowHandle hWindow);

  // Lets all the objects go that FromHandle has made.
  static void DeleteTempMap();

  WindowHandle GetSafeHwnd() const { return m_hWnd; }

  WindowHandle m_hWnd{};
};

}  // namespace ald
