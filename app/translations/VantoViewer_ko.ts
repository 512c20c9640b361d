<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="ko_KR" sourcelanguage="en_US">
<context>
    <name>VantoViewer::DevicesPane</name>
    <message>
        <source>%1 (lost)</source>
        <translation>%1 (연결 끊김)</translation>
    </message>
    <message>
        <source>Found cameras (double-click to open):</source>
        <translation>찾은 카메라 (두 번 클릭하여 열기):</translation>
    </message>
    <message>
        <source>Camera by IP Address or ID...</source>
        <translation>IP 주소 또는 ID로 카메라 지정...</translation>
    </message>
    <message>
        <source>Built-in Simulated Camera</source>
        <translation>내장 시뮬레이션 카메라</translation>
    </message>
    <message>
        <source>Simulated Camera from GenICam File...</source>
        <translation>GenICam 파일로 시뮬레이션 카메라...</translation>
    </message>
    <message>
        <source>Open</source>
        <translation>열기</translation>
    </message>
    <message>
        <source>Open a camera</source>
        <translation>카메라를 엽니다</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>닫기</translation>
    </message>
    <message>
        <source>Close the selected camera</source>
        <translation>선택한 카메라를 닫습니다</translation>
    </message>
    <message>
        <source>Scan</source>
        <translation>검색</translation>
    </message>
    <message>
        <source>Look for cameras on every network interface and on USB</source>
        <translation>모든 네트워크 인터페이스와 USB에서 카메라를 찾습니다</translation>
    </message>
    <message>
        <source>Scanning...</source>
        <translation>검색 중...</translation>
    </message>
    <message>
        <source>Open Camera</source>
        <translation>카메라 열기</translation>
    </message>
    <message>
        <source>IP address or device ID:</source>
        <translation>IP 주소 또는 장치 ID:</translation>
    </message>
    <message>
        <source>Simulate a Camera</source>
        <translation>카메라 시뮬레이션</translation>
    </message>
    <message>
        <source>GenICam descriptions (*.xml *.zip)</source>
        <translation>GenICam 설명 파일 (*.xml *.zip)</translation>
    </message>
    <message>
        <source>ID: %1
Serial number: %2
Transport: %3</source>
        <translation>ID: %1
일련 번호: %2
전송 방식: %3</translation>
    </message>
    <message>
        <source>No cameras found</source>
        <translation>카메라를 찾지 못했습니다</translation>
    </message>
    <message>
        <source>Reconnect</source>
        <translation>다시 연결</translation>
    </message>
    <message>
        <source>Open the lost camera again, once it is back</source>
        <translation>연결이 끊긴 카메라가 돌아오면 다시 엽니다</translation>
    </message>
</context>
<context>
    <name>VantoViewer::FeatureSetActions</name>
    <message>
        <source>Save Features...</source>
        <translation>기능 저장...</translation>
    </message>
    <message>
        <source>Load Features...</source>
        <translation>기능 불러오기...</translation>
    </message>
    <message>
        <source>Compare Features...</source>
        <translation>기능 비교...</translation>
    </message>
    <message>
        <source>Saves the camera&apos;s features to a file</source>
        <translation>카메라의 기능를 파일에 저장합니다</translation>
    </message>
    <message>
        <source>Writes the features of a file to the camera</source>
        <translation>파일의 기능를 카메라에 씁니다</translation>
    </message>
    <message>
        <source>Lists the features in which the camera differs from a file or another camera</source>
        <translation>카메라가 파일이나 다른 카메라와 다른 기능를 나열합니다</translation>
    </message>
    <message>
        <source>%1 has no features to save</source>
        <translation>%1에는 저장할 기능가 없습니다</translation>
    </message>
    <message>
        <source>Cannot read the features of %1: %2</source>
        <translation>%1의 기능를 읽을 수 없습니다: %2</translation>
    </message>
    <message>
        <source>Save Features</source>
        <translation>기능 저장</translation>
    </message>
    <message>
        <source>Cannot write %1: %2</source>
        <translation>%1에 쓸 수 없습니다: %2</translation>
    </message>
    <message numerus="yes">
        <source>%n feature value(s) saved to %1</source>
        <translation>
            <numerusform>%n개의 기능 값을 %1에 저장했습니다</numerusform>
        </translation>
    </message>
    <message>
        <source>Load Features</source>
        <translation>기능 불러오기</translation>
    </message>
    <message>
        <source>Cannot load %1: %2</source>
        <translation>%1을(를) 불러올 수 없습니다: %2</translation>
    </message>
    <message>
        <source>Writing the features of %1...</source>
        <translation>%1의 기능를 쓰는 중...</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>취소</translation>
    </message>
    <message>
        <source>A feature set file...</source>
        <translation>기능 세트 파일...</translation>
    </message>
    <message>
        <source>Compare Features</source>
        <translation>기능 비교</translation>
    </message>
    <message>
        <source>Compare %1 with:</source>
        <translation>%1과(와) 비교할 대상:</translation>
    </message>
    <message>
        <source>Cannot compare with %1: %2</source>
        <translation>%1과(와) 비교할 수 없습니다: %2</translation>
    </message>
</context>
<context>
    <name>VantoViewer::FeatureSetCompareDialog</name>
    <message>
        <source>Compare Features</source>
        <translation>기능 비교</translation>
    </message>
    <message>
        <source>%1 and %2 hold the same values.</source>
        <translation>%1과(와) %2의 값이 같습니다.</translation>
    </message>
    <message numerus="yes">
        <source>%n feature(s) differ between %1 and %2.</source>
        <translation>
            <numerusform>%1과(와) %2 사이에 %n개의 기능가 다릅니다.</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>VantoViewer::FeatureSetCompareModel</name>
    <message>
        <source>Feature</source>
        <translation>기능</translation>
    </message>
    <message>
        <source>Only In</source>
        <translation>한쪽에만</translation>
    </message>
</context>
<context>
    <name>VantoViewer::FeatureSetReportDialog</name>
    <message>
        <source>Unknown feature</source>
        <translation>알 수 없는 기능</translation>
    </message>
    <message>
        <source>Read-only</source>
        <translation>읽기 전용</translation>
    </message>
    <message>
        <source>Out of range</source>
        <translation>범위를 벗어남</translation>
    </message>
    <message>
        <source>Not available</source>
        <translation>사용할 수 없음</translation>
    </message>
    <message>
        <source>Locked</source>
        <translation>잠김</translation>
    </message>
    <message>
        <source>Invalid value</source>
        <translation>잘못된 값</translation>
    </message>
    <message>
        <source>Refused by the camera</source>
        <translation>카메라가 거부함</translation>
    </message>
    <message>
        <source>Cancelled</source>
        <translation>취소됨</translation>
    </message>
    <message>
        <source>Feature Set Loaded</source>
        <translation>기능 세트를 불러왔습니다</translation>
    </message>
    <message numerus="yes">
        <source>%1: every line was applied; %n feature(s) changed.</source>
        <translation>
            <numerusform>%1: 모든 줄을 적용했습니다. %n개의 기능가 바뀌었습니다.</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%1: %n line(s) could not be applied.</source>
        <translation>
            <numerusform>%1: %n개의 줄을 적용할 수 없었습니다.</numerusform>
        </translation>
    </message>
    <message>
        <source>Line</source>
        <translation>줄</translation>
    </message>
    <message>
        <source>Feature</source>
        <translation>기능</translation>
    </message>
    <message>
        <source>Value</source>
        <translation>값</translation>
    </message>
    <message>
        <source>Reason</source>
        <translation>이유</translation>
    </message>
    <message>
        <source>Details</source>
        <translation>세부 정보</translation>
    </message>
</context>
<context>
    <name>VantoViewer::FeatureStatusBar</name>
    <message>
        <source>refused by the camera (access denied)</source>
        <translation>카메라가 거부함 (접근 거부)</translation>
    </message>
    <message>
        <source>refused by the camera (value out of range)</source>
        <translation>카메라가 거부함 (범위를 벗어난 값)</translation>
    </message>
    <message>
        <source>refused by the camera (invalid value)</source>
        <translation>카메라가 거부함 (잘못된 값)</translation>
    </message>
    <message>
        <source>not written: the camera did not answer in time</source>
        <translation>쓰지 못함: 카메라가 제시간에 응답하지 않음</translation>
    </message>
    <message>
        <source>not written: the camera is lost</source>
        <translation>쓰지 못함: 카메라 연결이 끊김</translation>
    </message>
    <message>
        <source>not written: the camera does not have it</source>
        <translation>쓰지 못함: 카메라에 이 기능이 없음</translation>
    </message>
    <message>
        <source>the write failed</source>
        <translation>쓰기 실패</translation>
    </message>
</context>
<context>
    <name>VantoViewer::MainWindow</name>
    <message>
        <source>Devices</source>
        <translation>장치</translation>
    </message>
    <message>
        <source>Vanto Viewer</source>
        <translation>Vanto Viewer</translation>
    </message>
    <message numerus="yes">
        <source>%n camera(s) found</source>
        <translation>
            <numerusform>카메라 %n대를 찾았습니다</numerusform>
        </translation>
    </message>
    <message>
        <source>Ready</source>
        <translation>준비됨</translation>
    </message>
    <message>
        <source>Open Camera by IP Address or ID...</source>
        <translation>IP 주소 또는 ID로 카메라 열기...</translation>
    </message>
    <message>
        <source>Open Built-in Simulated Camera</source>
        <translation>내장 시뮬레이션 카메라 열기</translation>
    </message>
    <message>
        <source>Close Camera</source>
        <translation>카메라 닫기</translation>
    </message>
    <message>
        <source>Refresh Features</source>
        <translation>기능 새로 고침</translation>
    </message>
    <message>
        <source>Reads every shown feature from the camera again</source>
        <translation>표시된 모든 기능을 카메라에서 다시 읽습니다</translation>
    </message>
    <message>
        <source>Cannot open %1: %2</source>
        <translation>%1을(를) 열 수 없습니다: %2</translation>
    </message>
    <message>
        <source>Cannot simulate %1: %2</source>
        <translation>%1을(를) 시뮬레이션할 수 없습니다: %2</translation>
    </message>
    <message>
        <source>the built-in camera</source>
        <translation>내장 카메라</translation>
    </message>
    <message>
        <source>%1 is lost: %2</source>
        <translation>%1 연결이 끊어졌습니다: %2</translation>
    </message>
    <message>
        <source>Visibility</source>
        <translation>표시 수준</translation>
    </message>
    <message>
        <source>Cannot reconnect %1: %2</source>
        <translation>%1에 다시 연결할 수 없음: %2</translation>
    </message>
    <message>
        <source>%1 is connected again</source>
        <translation>%1에 다시 연결됨</translation>
    </message>
    <message>
        <source>Settings cannot be saved to %1: %2. Changes to the layout and the visibility level are lost when the viewer closes.</source>
        <translation>설정을 %1에 저장할 수 없습니다: %2. 레이아웃과 표시 수준의 변경은 뷰어를 닫으면 사라집니다.</translation>
    </message>
    <message>
        <source>Opening %1...</source>
        <translation>%1 여는 중...</translation>
    </message>
</context>
<context>
    <name>VantoViewer::MenuService</name>
    <message>
        <source>&amp;Camera</source>
        <translation>카메라(&amp;C)</translation>
    </message>
    <message>
        <source>&amp;Window</source>
        <translation>창(&amp;W)</translation>
    </message>
</context>
<context>
    <name>VantoViewer::OpeningProgress</name>
    <message>
        <source>Cancel</source>
        <translation>취소</translation>
    </message>
    <message>
        <source>Opening Camera</source>
        <translation>카메라 여는 중</translation>
    </message>
</context>
<context>
    <name>VantoViewer::PluginManager</name>
    <message>
        <source>%1 is no Vanto Viewer plug-in: %2</source>
        <translation>%1은(는) Vanto Viewer 플러그인이 아닙니다: %2</translation>
    </message>
    <message>
        <source>Cannot load %1: %2</source>
        <translation>%1을(를) 불러올 수 없습니다: %2</translation>
    </message>
    <message>
        <source>The plug-in %1 did not start.</source>
        <translation>플러그인 %1이(가) 시작되지 않았습니다.</translation>
    </message>
</context>
<context>
    <name>VantoViewer::VisibilityToolBar</name>
    <message>
        <source>Visibility</source>
        <translation>표시 수준</translation>
    </message>
    <message>
        <source>Beginner</source>
        <translation>초급</translation>
    </message>
    <message>
        <source>Show the features needed for basic camera set-up</source>
        <translation>기본 카메라 설정에 필요한 기능을 표시합니다</translation>
    </message>
    <message>
        <source>Expert</source>
        <translation>고급</translation>
    </message>
    <message>
        <source>Also show the features for advanced set-up</source>
        <translation>고급 설정용 기능도 표시합니다</translation>
    </message>
    <message>
        <source>Guru</source>
        <translation>전문가</translation>
    </message>
    <message>
        <source>Show every feature, including those that need care</source>
        <translation>주의가 필요한 기능을 포함하여 모든 기능을 표시합니다</translation>
    </message>
</context>
<context>
    <name>VantoViewer::WindowService</name>
    <message>
        <source>the file or its folder cannot be written</source>
        <translation>파일 또는 그 폴더에 쓸 수 없습니다</translation>
    </message>
    <message>
        <source>the file is damaged</source>
        <translation>파일이 손상되었습니다</translation>
    </message>
</context>
</TS>
