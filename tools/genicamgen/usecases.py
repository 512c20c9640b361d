def cam(*names):
    return ["@CameraDevice/" + n for n in names]


def sgp(*names):
    return ["@StreamGrabber0/" + n for n in names]


def names(en, ja, zh, ko):
    return [{"Text": en, "LanguageCode": "en"}, {"Text": ja, "LanguageCode": "ja"},
            {"Text": zh, "LanguageCode": "zh"}, {"Text": ko, "LanguageCode": "ko"}]


BASIC = {"UseCases": [{
    "Name": [{"Text": "Nodescope - Basic", "LanguageCode": "en"}],
    "Parameters": cam("Width", "Height", "PixelFormat", "ExposureTime", "ExposureTimeAbs", "ExposureAuto", "Gain",
                      "GainRaw", "GainAuto", "BalanceWhiteAuto", "AcquisitionFrameRateEnable",
                      "AcquisitionFrameRateAbs", "AcquisitionFrameRate"),
}]}

BRIGHTNESS = cam(
    "ExposureMode", "ExposureAuto", "ExposureTime", "GainSelector", "GainAuto", "Gain", "BlackLevelSelector",
    "BlackLevel", "VntGammaEnable", "Gamma", "VntDigitalShift", "VntAutoTargetBrightness", "VntAutoFunctionProfile",
    "VntAutoExposureTimeLowerLimit", "VntAutoExposureTimeUpperLimit", "VntAutoGainLowerLimit", "VntAutoGainUpperLimit",
    "VntAutoFunctionROISelector", "VntAutoFunctionROIOffsetX", "VntAutoFunctionROIOffsetY", "VntAutoFunctionROIWidth",
    "VntAutoFunctionROIHeight", "VntAutoFunctionROIUseBrightness")

RESOLUTION = cam("Width", "Height", "BinningHorizontal", "BinningHorizontalMode", "BinningVertical",
                 "BinningVerticalMode", "DecimationHorizontal", "DecimationVertical", "VntScalingFactor")

FRAME_RATE = cam(
    "AcquisitionMode", "AcquisitionFrameRateEnable", "AcquisitionFrameRate", "VntResultingFrameRate",
    "AcquisitionBurstFrameCount", "ExposureMode", "ExposureAuto", "ExposureTime", "VntAutoExposureTimeUpperLimit",
    "SensorShutterMode", "VntSensorMode", "VntSensorReadoutTime", "Width", "Height", "OffsetX", "OffsetY",
    "BinningHorizontal", "BinningHorizontalMode", "BinningVertical", "BinningVerticalMode", "DecimationHorizontal",
    "DecimationVertical", "PixelFormat", "TriggerSelector", "TriggerMode", "TriggerSource", "TriggerOverlap",
    "DeviceLinkSpeed", "DeviceLinkThroughputLimitMode", "DeviceLinkThroughputLimit", "DeviceLinkCurrentThroughput",
    "GevSCPSPacketSize", "GevSCPD", "GevSCFTD", "GevSCBWR", "ChunkModeActive")

USER_SETS = cam("UserSetSelector", "UserSetLoad", "UserSetSave", "UserSetDefault", "VntUserSetDescription")

TRIGGER = cam(
    "TriggerSelector", "TriggerMode", "TriggerSource", "TriggerActivation", "TriggerDelay", "TriggerDivider",
    "TriggerOverlap", "TriggerSoftware", "AcquisitionMode", "AcquisitionStart", "AcquisitionStop",
    "AcquisitionFrameCount", "AcquisitionBurstFrameCount", "ExposureMode", "ExposureTime",
    "AcquisitionStatusSelector", "AcquisitionStatus", "LineSelector", "LineMode", "LineInverter", "LineSource",
    "LineStatus", "LineStatusAll", "LineFormat", "LineDebouncerTime", "VntLineMinimumOutputPulseWidth",
    "UserOutputSelector", "UserOutputValue", "UserOutputValueAll", "SoftwareSignalSelector", "SoftwareSignalPulse",
    "TimerSelector", "TimerTriggerSource", "TimerTriggerActivation", "TimerDelay", "TimerDuration",
    "CounterSelector", "CounterEventSource", "CounterEventActivation", "CounterResetSource", "CounterReset",
    "CounterValue", "ActionDeviceKey")

LOSING_DATA = sgp("Statistic_Total_Buffer_Count", "Statistic_Failed_Buffer_Count", "Statistic_Buffer_Underrun_Count",
                  "Statistic_Missed_Frame_Count", "Statistic_Resend_Request_Count", "MaxNumBuffer") + \
    cam("DeviceLinkThroughputLimitMode", "DeviceLinkThroughputLimit", "GevSCPSPacketSize", "GevSCPD", "GevSCBWR")

IMAGE_QUALITY = cam(
    "PixelFormat", "VntSensorMode", "VntSensorConversionGain", "SensorShutterMode", "ExposureTime", "ExposureAuto",
    "GainSelector", "Gain", "GainAuto", "BlackLevelSelector", "BlackLevel", "VntGammaEnable", "Gamma",
    "VntDigitalShift", "BalanceWhiteAuto", "BalanceRatioSelector", "BalanceRatio", "LUTSelector", "LUTEnable",
    "LUTIndex", "LUTValue", "ColorTransformationSelector", "ColorTransformationEnable",
    "ColorTransformationValueSelector", "ColorTransformationValue", "VntColorAdjustmentEnable",
    "VntColorAdjustmentSelector", "VntColorAdjustmentHue", "VntColorAdjustmentSaturation", "VntDemosaicingMode",
    "VntSharpeningEnable", "VntSharpeningLevel", "VntSharpeningThreshold", "VntNoiseReductionEnable",
    "VntNoiseReductionMode", "VntNoiseReductionStrength", "VntTemporalFilterFrameCount",
    "VntDefectPixelCorrectionMode", "VntDefectPixelThreshold", "VntDefectPixelCount", "VntFlatFieldCorrectionEnable",
    "VntFlatFieldCorrectionCalibrate", "VntFlatFieldCorrectionStatus", "BinningHorizontalMode", "BinningVerticalMode",
    "VntScalingFactor", "VntScalingAlgorithm", "ReverseX", "ReverseY", "PixelSize", "PixelColorFilter",
    "PixelDynamicRangeMax", "VntSensorBitDepth", "TestPattern")

CONSISTENT = cam(
    "ExposureAuto", "ExposureTime", "GainAuto", "Gain", "BalanceWhiteAuto", "BalanceRatioSelector", "BalanceRatio",
    "VntAutoTargetBrightness", "VntAutoFunctionProfile", "VntAutoExposureTimeLowerLimit",
    "VntAutoExposureTimeUpperLimit", "VntAutoGainLowerLimit", "VntAutoGainUpperLimit", "VntAutoFunctionROISelector",
    "VntAutoFunctionROIUseBrightness", "VntAutoFunctionROIUseWhiteBalance", "VntIlluminantPreset",
    "VntFlickerCompensation", "VntAutoExposureDampening", "VntAutoWhiteBalanceDampening")

ALL = {"UseCases": [
    {"Name": names("Controlling the brightness", "明るさの制御", "控制亮度", "밝기 제어"),
     "Parameters": BRIGHTNESS},
    {"Name": names("Changing the resolution", "解像度の変更", "更改分辨率", "해상도 변경"),
     "Parameters": RESOLUTION},
    {"Name": names("Controlling the frame rate", "フレームレートの制御", "控制帧率", "프레임 레이트 제어"),
     "Parameters": FRAME_RATE},
    {"Name": names("Saving camera settings for later use", "後で使用するためのカメラ設定の保存",
                   "保存相机设置以供日后使用", "나중에 사용할 수 있도록 카메라 설정 저장"),
     "Parameters": USER_SETS},
    {"Name": names("Configuring the trigger behavior of the camera", "カメラのトリガー動作の設定",
                   "配置相机的触发行为", "카메라의 트리거 동작 구성"),
     "Parameters": TRIGGER},
    {"Name": names("Checking whether the camera is losing image data", "カメラで画像データが失われていないかの確認",
                   "检查相机是否丢失图像数据", "카메라의 이미지 데이터 손실 여부 확인"),
     "Parameters": LOSING_DATA},
    {"Name": names("Optimizing the image quality", "画質の最適化", "优化图像质量", "이미지 품질 최적화"),
     "Parameters": IMAGE_QUALITY},
    {"Name": names("Keeping the image quality consistent under changing light conditions",
                   "照明条件が変化しても画質を一定に保つ", "在光照条件变化时保持图像质量稳定",
                   "조명 조건이 변해도 이미지 품질을 일정하게 유지"),
     "Parameters": CONSISTENT},
]}

EXPECTED = [23, 9, 36, 5, 43, 11, 54, 20]
for uc, n in zip(ALL["UseCases"], EXPECTED):
    assert len(uc["Parameters"]) == n, (uc["Name"][0]["Text"], len(uc["Parameters"]), n)
assert len(BASIC["UseCases"][0]["Parameters"]) == 13
assert sum(p.startswith("@StreamGrabber0/") for p in LOSING_DATA) == 6
