#include "aldlib/platform/MemoryDisk.h"

#include <algorithm>

#include "aldlib/platform/Characters.h"
#include "aldlib/platform/internal/FoldedName.h"
#include "aldlib/platform/internal/PathText.h"

namespace ald {
namespace {

std::uint64_t BytesIn(const MemoryNode& node) {
  std::uint64_t nBytes = node.sData.size();
  for (const auto& child : node.children) nBytes += BytesIn(*child.second);
  return nBytes;
}

MemoryNodePtr ChildOf(const MemoryNode& folder, const CString& sName) {
  const auto it = folder.children.find(FoldedName(sName));
  return it != folder.children.end() ? it->second : nullptr;
}

// True if a folder is the other one or lies in it.
bool Holds(const MemoryNodePtr& pFolder, const MemoryNodePtr& pNode) {
  return pFolder == pNode ||
         std::any_of(pFolder->children.begin(), pFolder->children.end(),
                     [&pNode](const auto& child) { return Holds(child.second, pNode); });
}

}  // namespace

MemoryDisk::MemoryDisk() {
  AddDrive('C');
}

void MemoryDisk::AddDrive(char chDrive, std::uint64_t nTotal) {
  if (!IsDriveLetter(chDrive)) return;
  Drive& drive = m_drives[DriveIndex(chDrive)];
  drive = {std::make_shared<MemoryNode>(), {}, nTotal};
  drive.pRoot->bFolder = true;
}

MemoryDisk::Place MemoryDisk::PlaceOf(std::string_view sPath) const {
  Place place;
  const bool bDrive = HasDrive(sPath);
  if (sPath.empty() || IsSharePath(sPath)) return place;
  place.chDrive = bDrive ? ToUpperAscii(sPath[0]) : m_chCurrent;
  const Drive& drive = m_drives[DriveIndex(place.chDrive)];
  if (drive.pRoot == nullptr) return place;
  place.pDrive = &drive;
  if (bDrive) sPath.remove_prefix(2);
  CString sFromRoot(sPath);
  if (sPath.empty() || !IsSeparator(sPath[0])) sFromRoot.insert(0, drive.sCurrent + '\\');
  for (const std::string_view sElement : ElementsOf(sFromRoot, true)) {
    place.elements.emplace_back(sElement);
  }
  return place;
}

std::uint32_t MemoryDisk::FindParent(const Place& place, MemoryNodePtr& pParent) {
  if (place.pDrive == nullptr) return kPathNotFound;
  pParent = place.pDrive->pRoot;
  for (std::size_t i = 0; i + 1 < place.elements.size(); ++i) {
    pParent = ChildOf(*pParent, place.elements[i]);
    if (pParent == nullptr || !pParent->bFolder) return kPathNotFound;
  }
  return kNoSystemError;
}

// The node of the last element, null if it is not there, and the folder it is or would be in. The
// root of a drive has none.
std::uint32_t MemoryDisk::FindChild(const Place& place, MemoryNodePtr& pParent,
                                    MemoryNodePtr& pNode) {
  if (const std::uint32_t nError = FindParent(place, pParent)) return nError;
  if (place.elements.empty()) {
    pNode.swap(pParent);
    pParent = nullptr;
    return kNoSystemError;
  }
  pNode = ChildOf(*pParent, place.elements.back());
  return pNode != nullptr ? kNoSystemError : kFileNotFound;
}

std::uint32_t MemoryDisk::Find(std::string_view sPath, MemoryNodePtr& pNode) const {
  MemoryNodePtr pParent;
  return FindChild(PlaceOf(sPath), pParent, pNode);
}

std::uint32_t MemoryDisk::Make(std::string_view sPath, bool bFolder, MemoryNodePtr& pNode) {
  const Place place = PlaceOf(sPath);
  MemoryNodePtr pParent;
  const std::uint32_t nError = FindChild(place, pParent, pNode);
  if (nError == kNoSystemError) return kFileExists;
  if (nError != kFileNotFound) return nError;
  pNode = std::make_shared<MemoryNode>();
  pNode->sName = place.elements.back();
  pNode->bFolder = bFolder;
  pParent->children[FoldedName(pNode->sName)] = pNode;
  return kNoSystemError;
}

std::uint32_t MemoryDisk::Remove(std::string_view sPath) {
  MemoryNodePtr pParent;
  MemoryNodePtr pNode;
  if (const std::uint32_t nError = FindChild(PlaceOf(sPath), pParent, pNode)) return nError;
  if (pParent == nullptr) return kAccessDenied;
  if (!pNode->children.empty()) return kFolderNotEmpty;
  pParent->children.erase(FoldedName(pNode->sName));
  return kNoSystemError;
}

std::uint32_t MemoryDisk::Rename(std::string_view sFrom, std::string_view sTo) {
  MemoryNodePtr pParent;
  MemoryNodePtr pNode;
  if (const std::uint32_t nError = FindChild(PlaceOf(sFrom), pParent, pNode)) return nError;
  const Place place = PlaceOf(sTo);
  MemoryNodePtr pNewParent;
  MemoryNodePtr pTaken;
  const std::uint32_t nError = FindChild(place, pNewParent, pTaken);
  if (nError == kNoSystemError && pTaken != pNode) return kFileExists;
  if (nError == kPathNotFound) return nError;
  if (pParent == nullptr || pNewParent == nullptr || Holds(pNode, pNewParent)) return kAccessDenied;
  pParent->children.erase(FoldedName(pNode->sName));
  pNode->sName = place.elements.back();
  pNewParent->children[FoldedName(pNode->sName)] = pNode;
  return kNoSystemError;
}

MemoryNodePtr MemoryDisk::Write(std::string_view sPath, std::string_view sData) {
  for (std::size_t n = sPath.find_first_of("\\/"); n != std::string_view::npos;
       n = sPath.find_first_of("\\/", n + 1)) {
    MemoryNodePtr pFolder;
    Make(sPath.substr(0, n), true, pFolder);
  }
  MemoryNodePtr pNode;
  Make(sPath, false, pNode);
  if (pNode != nullptr) pNode->sData = sData;
  return pNode;
}

CString MemoryDisk::FullPath(std::string_view sPath) const {
  const Place place = PlaceOf(sPath);
  if (place.pDrive == nullptr) return {};
  CString sFull{place.chDrive, ':'};
  if (place.elements.empty()) return sFull + '\\';
  MemoryNodePtr pNode = place.pDrive->pRoot;
  for (const CString& sElement : place.elements) {
    if (pNode != nullptr) pNode = ChildOf(*pNode, sElement);
    sFull.append("\\").append(pNode != nullptr ? pNode->sName : sElement);
  }
  return sFull;
}

bool MemoryDisk::ChangeDrive(char chDrive) {
  if (!IsDriveLetter(chDrive) || m_drives[DriveIndex(chDrive)].pRoot == nullptr) return false;
  m_chCurrent = ToUpperAscii(chDrive);
  return true;
}

bool MemoryDisk::ChangeFolder(std::string_view sPath) {
  MemoryNodePtr pNode;
  if (Find(sPath, pNode) != kNoSystemError || !pNode->bFolder) return false;
  const CString sFull = FullPath(sPath);
  m_drives[DriveIndex(sFull[0])].sCurrent = sFull.substr(3);
  return true;
}

CString MemoryDisk::CurrentFolder(char chDrive) const {
  if (!IsDriveLetter(chDrive)) return {};
  return FullPath(CString{chDrive, ':'});
}

std::uint64_t MemoryDisk::TotalBytes(char chDrive) const {
  return IsDriveLetter(chDrive) ? m_drives[DriveIndex(chDrive)].nTotal : 0;
}

std::uint64_t MemoryDisk::FreeBytes(char chDrive) const {
  const std::uint64_t nTotal = TotalBytes(chDrive);
  if (nTotal == 0) return 0;
  return nTotal - std::min(nTotal, BytesIn(*m_drives[DriveIndex(chDrive)].pRoot));
}

}  // namespace ald
