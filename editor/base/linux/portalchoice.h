// Asks for a file with the desktop portal, where there is no dialog program: in a sandbox.
#pragma once

#include <string>

#include "editor/base/linux/filemeans.h"
#include "platform/linux/portalrequest.h"

class PortalChoice final : public FileMeans {
 public:
  void choose(const FileDialogRequest& request) override;
  // The portal asks about the names that are typed in its dialog, and about no other.
  bool askToReplace(const FileDialogRequest&, const std::string&) override { return false; }
  State poll() override;
  std::string path() const override;
  bool isOnlyFile() const override;

 private:
  PortalRequest portal;
};
