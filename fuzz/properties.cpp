// The properties document of a driver, as the pages read it.
#include "core/errors/MException.h"
#include "core/filer/MOutFilerTaggedXml.h"
#include "fuzz/fuzz_target.h"
#include "settings/properties/MHXFamilyDeviceProperties.h"
#include "settings/properties/MPropertiesHelper.h"

namespace fuzz {
namespace {

using hx::MPropertiesHelper;

struct Document {
    bool Read(const std::wstring& text, bool device_required) {
        try {
            MPropertiesHelper(driver, device).ReadXML(text, device_required);
            return true;
        } catch (const hx::MException&) {
            return false;
        }
    }
    std::wstring Write() const {
        hx::MOutFilerTaggedXml writer(MPropertiesHelper::kRoot);
        hx::MFilerTaggedPair filer(writer);
        Require(MPropertiesHelper::WriteDocument(filer, driver, device), "properties can be written");
        return writer.TakeText();
    }

    hx::MCommonDriverProperties driver;
    // Of all classes of device the one that holds all others.
    hx::MHXFamilyDeviceProperties device;
};

}  // namespace

void Properties(Input input) {
    const std::wstring text = input.Text(SIZE_MAX);
    Document document;
    const bool read = document.Read(text, false);
    const std::wstring written = document.Write();
    Document with_device;
    Require(!with_device.Read(text, true) || read, "to require the device makes no document readable");
    Require(with_device.Write() == written, "and changes nothing of what is read");
    Document again;
    Require(again.Read(written, true), "what is written can be read");
    Require(again.Write() == written, "and is the same");
}

}  // namespace fuzz
