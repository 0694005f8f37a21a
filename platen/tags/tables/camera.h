#pragma once

#include <platen/tags/rows.h>

/// What TIFF/EP in the image's directory and Exif in its own say alike.
namespace platen::tags {

inline constexpr ValueWord kExposurePrograms[] = {
    {0, "Not defined"},       {1, "Manual"},           {2, "Normal program"},
    {3, "Aperture priority"}, {4, "Shutter priority"}, {5, "Creative program"},
    {6, "Action program"},    {7, "Portrait mode"},    {8, "Landscape mode"}};
inline constexpr ValueWord kMeteringModes[] = {
    {0, "Unknown"}, {1, "Average"},    {2, "Center-weighted average"},
    {3, "Spot"},    {4, "Multi-spot"}, {5, "Pattern"},
    {6, "Partial"}, {255, "Other"}};
inline constexpr ValueWord kLightSources[] = {{0, "Unknown"},
                                              {1, "Daylight"},
                                              {2, "Fluorescent"},
                                              {3, "Tungsten"},
                                              {4, "Flash"},
                                              {9, "Fine weather"},
                                              {10, "Cloudy weather"},
                                              {11, "Shade"},
                                              {12, "Daylight fluorescent"},
                                              {13, "Day white fluorescent"},
                                              {14, "Cool white fluorescent"},
                                              {15, "White fluorescent"},
                                              {16, "Warm white fluorescent"},
                                              {17, "Standard light A"},
                                              {18, "Standard light B"},
                                              {19, "Standard light C"},
                                              {20, "D55"},
                                              {21, "D65"},
                                              {22, "D75"},
                                              {23, "D50"},
                                              {24, "ISO studio tungsten"},
                                              {255, "Other"}};
inline constexpr ValueWord kFlashes[] = {{0, "Did not fire"},
                                         {1, "Fired"},
                                         {5, "Fired - no return light"},
                                         {7, "Fired - return light"},
                                         {9, "Fired - forced"},
                                         {13, "Fired - forced - no return light"},
                                         {15, "Fired - forced - return light"},
                                         {16, "Did not fire - forced"},
                                         {24, "Did not fire - auto"},
                                         {25, "Fired - auto"},
                                         {29, "Fired - auto - no return light"},
                                         {31, "Fired - auto - return light"},
                                         {32, "No flash"},
                                         {65, "Fired - red-eye"},
                                         {69, "Fired - red-eye - no return light"},
                                         {71, "Fired - red-eye - return light"},
                                         {73, "Fired - forced - red-eye"},
                                         {77, "Fired - forced - red-eye - no return light"},
                                         {79, "Fired - forced - red-eye - return light"},
                                         {89, "Fired - auto - red-eye"},
                                         {93, "Fired - auto - red-eye - no return light"},
                                         {95, "Fired - auto - red-eye - return light"}};

inline constexpr Row kCamera[] = {
    Rational(33434, "ExposureTime", "Exposure time, in seconds"),
    Rational(33437, "FNumber", "F number"),
    Short(34850, "ExposureProgram", "How the exposure was chosen").Words(kExposurePrograms),
    Text(34852, "SpectralSensitivity", "Spectral sensitivity of each channel"),
    Undefined(34856, "OECF", "Optoelectric conversion function"),
    Text(36867, "DateTimeOriginal", "When the picture was taken").Times(20),
    Rational(37122, "CompressedBitsPerPixel", "Bits of a pixel after compression"),
    SRational(37377, "ShutterSpeedValue", "Shutter speed, in APEX units"),
    Rational(37378, "ApertureValue", "Aperture, in APEX units"),
    SRational(37379, "BrightnessValue", "Brightness, in APEX units"),
    SRational(37380, "ExposureBiasValue", "Exposure correction, in APEX units"),
    Rational(37381, "MaxApertureValue", "Widest aperture of the lens, in APEX units"),
    Short(37383, "MeteringMode", "How light was measured").Words(kMeteringModes),
    Short(37384, "LightSource", "Kind of light").Words(kLightSources),
    Short(37385, "Flash", "What the flash did").Words(kFlashes),
};

}  // namespace platen::tags
