#pragma once

#import <Foundation/Foundation.h>
#include <optional>
#include <string>

namespace tervale {

/// The text with whatever is no UTF-8 in it repaired. Autoreleased.
NSString* foundationText(const std::string& text);

/// The UTF-8 of an object that is a string; nothing for any other object, and for none.
std::optional<std::string> standardText(id object);

} // namespace tervale
