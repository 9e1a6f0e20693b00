#pragma once
// Configuration constants of the product.

#include <string_view>

namespace vellumark::core {

/// Title of all message boxes.
inline constexpr std::string_view productTitle = "Vellumark for presentations";
/// Base of the vendor's web site, ending in a slash.
inline constexpr std::string_view webBaseUrl = "http://www.vellumark.example/";
/// The support address that messages show.
inline constexpr std::string_view supportEmail = "support@vellumark.example";
/// Where "Send feedback" writes to.
inline constexpr std::string_view feedbackEmail = "feedback@vellumark.example";
/// Namespace of the host's custom UI schema of 2006.
inline constexpr std::string_view customUiNamespace = "http://schemas.microsoft.com/office/2006/01/customui";
/// The toolbar of the Trimline Tools on hosts before the ribbon.
inline constexpr const char* toolsBarName = "Vellumark for presentations - Trimline Tools";
/// The add-in for automatic updates.
inline constexpr std::string_view updaterProgId = "zorpu.Connect";
/// Version of the add-in as major.minor.revision.
inline constexpr std::string_view addInVersion = "0.1.0";

}  // namespace vellumark::core
