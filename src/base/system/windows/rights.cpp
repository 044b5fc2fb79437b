// Access list, attributes and time of creation. What a file system cannot hold is left out.
#include <io.h>

#include <cerrno>
#include <cstring>
#include <memory>

#include "base/system/files.h"
#include "base/system/windows/wide.h"

#include <accctrl.h>
#include <aclapi.h>

namespace {

struct FreeLocally {
  void operator()(void* block) const { LocalFree(block); }
};

bool isUnsupported(DWORD code) {
  return code == ERROR_NOT_SUPPORTED || code == ERROR_INVALID_FUNCTION;
}

struct AccessList {
  DWORD code = ERROR_SUCCESS;  // of the call that reads it
  std::unique_ptr<void, FreeLocally> descriptor;
  PACL list = nullptr;       // within the descriptor; null lets everybody in
  bool isProtected = false;  // from what the folder would add

  bool isSame(const AccessList& other) const {
    if (isProtected != other.isProtected || list == nullptr || other.list == nullptr) return false;
    return list->AclSize == other.list->AclSize &&
           std::memcmp(list, other.list, list->AclSize) == 0;
  }
};

AccessList accessListOf(HANDLE handle) {
  AccessList result;
  PSECURITY_DESCRIPTOR descriptor = nullptr;
  result.code = GetSecurityInfo(handle, SE_FILE_OBJECT, DACL_SECURITY_INFORMATION, nullptr, nullptr,
                                &result.list, nullptr, &descriptor);
  if (result.code != ERROR_SUCCESS) return result;
  result.descriptor.reset(descriptor);
  SECURITY_DESCRIPTOR_CONTROL control = 0;
  DWORD revision = 0;
  (void)GetSecurityDescriptorControl(descriptor, &control, &revision);
  result.isProtected = (control & SE_DACL_PROTECTED) != 0;
  return result;
}

/** ERROR_SUCCESS, or why the access list could not be taken over. Mostly both have it from their
    folder. */
DWORD copyAccessList(HANDLE source, HANDLE target) {
  const AccessList wanted = accessListOf(source);
  if (wanted.code != ERROR_SUCCESS) return wanted.code;
  if (wanted.isSame(accessListOf(target))) return ERROR_SUCCESS;
  const DWORD inheritance = wanted.isProtected ? PROTECTED_DACL_SECURITY_INFORMATION
                                               : UNPROTECTED_DACL_SECURITY_INFORMATION;
  return SetSecurityInfo(target, SE_FILE_OBJECT, DACL_SECURITY_INFORMATION | inheritance, nullptr,
                         nullptr, wanted.list, nullptr);
}

}  // namespace

int takeRights(int descriptor, const char* path) {
  constexpr DWORD kept = FILE_ATTRIBUTE_HIDDEN | FILE_ATTRIBUTE_SYSTEM | FILE_ATTRIBUTE_ARCHIVE |
                         FILE_ATTRIBUTE_NOT_CONTENT_INDEXED;
  const auto handle = reinterpret_cast<HANDLE>(_get_osfhandle(descriptor));
  const Handle source = openExisting(widePath(path), FILE_READ_ATTRIBUTES | READ_CONTROL, 0);
  FILE_BASIC_INFO info{};
  if (source == nullptr ||
      GetFileInformationByHandleEx(source.get(), FileBasicInfo, &info, sizeof(info)) == 0) {
    return fail();
  }
  FILE_BASIC_INFO given{};  // times of 0 stay as they are
  given.CreationTime = info.CreationTime;
  given.FileAttributes = info.FileAttributes & kept;
  if (given.FileAttributes == 0) given.FileAttributes = FILE_ATTRIBUTE_NORMAL;
  if (SetFileInformationByHandle(handle, FileBasicInfo, &given, sizeof(given)) == 0) return fail();
  const DWORD code = copyAccessList(source.get(), handle);
  if (code == ERROR_SUCCESS || isUnsupported(code)) return 0;
  errno = errorNumber(code);
  return -1;
}
