<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="ko_KR" sourcelanguage="en_US">
<context>
    <name>VantoViewer::AcquisitionActions</name>
    <message>
        <source>Single Shot</source>
        <translation>단일 촬영</translation>
    </message>
    <message>
        <source>Continuous Shot</source>
        <translation>연속 촬영</translation>
    </message>
    <message>
        <source>Stop</source>
        <translation>정지</translation>
    </message>
    <message>
        <source>Software Trigger</source>
        <translation>소프트웨어 트리거</translation>
    </message>
    <message>
        <source>Acquires one image</source>
        <translation>이미지를 한 장 획득합니다</translation>
    </message>
    <message>
        <source>Acquires images until stopped</source>
        <translation>정지할 때까지 이미지를 획득합니다</translation>
    </message>
    <message>
        <source>Stops acquiring</source>
        <translation>획득을 정지합니다</translation>
    </message>
    <message>
        <source>Executes TriggerSoftware: one trigger for the camera</source>
        <translation>TriggerSoftware 실행: 카메라에 트리거 한 번</translation>
    </message>
</context>
<context>
    <name>VantoViewer::ChangeJournal</name>
    <message>
        <source>&amp;Undo</source>
        <translation>실행 취소(&amp;U)</translation>
    </message>
    <message>
        <source>&amp;Redo</source>
        <translation>다시 실행(&amp;R)</translation>
    </message>
    <message>
        <source>Set %1 to %2</source>
        <translation>%1을(를) %2(으)로 설정</translation>
    </message>
    <message numerus="yes">
        <source>%n feature(s)</source>
        <translation>
            <numerusform>기능 %n개</numerusform>
        </translation>
    </message>
    <message>
        <source>Load %1</source>
        <translation>%1 불러오기</translation>
    </message>
    <message>
        <source>the camera is closed</source>
        <translation>카메라가 닫혔습니다</translation>
    </message>
    <message>
        <source>%1: the camera has no such feature</source>
        <translation>%1: 카메라에 이 기능이 없습니다</translation>
    </message>
    <message>
        <source>Undone: %1</source>
        <translation>실행 취소됨: %1</translation>
    </message>
    <message>
        <source>Redone: %1</source>
        <translation>다시 실행됨: %1</translation>
    </message>
    <message>
        <source>Cannot undo &quot;%1&quot;: %2</source>
        <translation>&quot;%1&quot;을(를) 실행 취소할 수 없습니다: %2</translation>
    </message>
    <message>
        <source>Cannot redo &quot;%1&quot;: %2</source>
        <translation>&quot;%1&quot;을(를) 다시 실행할 수 없습니다: %2</translation>
    </message>
    <message>
        <source>&amp;Undo %1</source>
        <translation>%1 실행 취소(&amp;U)</translation>
    </message>
    <message>
        <source>&amp;Redo %1</source>
        <translation>%1 다시 실행(&amp;R)</translation>
    </message>
</context>
<context>
    <name>VantoViewer::ChangesModel</name>
    <message>
        <source>Execute</source>
        <translation>실행</translation>
    </message>
    <message>
        <source>(not read)</source>
        <translation>(읽지 않음)</translation>
    </message>
    <message>
        <source>Applied as one step</source>
        <translation>한 단계로 적용됨</translation>
    </message>
    <message>
        <source>Undone</source>
        <translation>실행 취소됨</translation>
    </message>
    <message>
        <source>Undo refused: %1</source>
        <translation>실행 취소 거부됨: %1</translation>
    </message>
    <message>
        <source>Redone</source>
        <translation>다시 실행됨</translation>
    </message>
    <message>
        <source>Redo refused: %1</source>
        <translation>다시 실행 거부됨: %1</translation>
    </message>
    <message>
        <source>Done (feature set)</source>
        <translation>완료 (기능 세트)</translation>
    </message>
    <message>
        <source>Refused (feature set): %1</source>
        <translation>거부됨 (기능 세트): %1</translation>
    </message>
    <message>
        <source>Done</source>
        <translation>완료</translation>
    </message>
    <message>
        <source>Refused: %1</source>
        <translation>거부됨: %1</translation>
    </message>
    <message>
        <source>Time</source>
        <translation>시각</translation>
    </message>
    <message>
        <source>Feature</source>
        <translation>기능</translation>
    </message>
    <message>
        <source>Old Value</source>
        <translation>이전 값</translation>
    </message>
    <message>
        <source>New Value</source>
        <translation>새 값</translation>
    </message>
    <message>
        <source>Result</source>
        <translation>결과</translation>
    </message>
</context>
<context>
    <name>VantoViewer::ConversionEngine</name>
    <message>
        <source>Pixel format %1 can&apos;t be shown.</source>
        <translation>픽셀 형식 %1은(는) 표시할 수 없습니다.</translation>
    </message>
    <message>
        <source>The %1 frame holds no image (%2 × %3).</source>
        <translation>%1 프레임에 이미지가 없습니다(%2 × %3).</translation>
    </message>
    <message>
        <source>A frame of %1 × %2 is too large to be shown.</source>
        <translation>%1 × %2 프레임은 너무 커서 표시할 수 없습니다.</translation>
    </message>
    <message>
        <source>The frame holds %1 bytes; a %2 × %3 %4 image needs %5.</source>
        <translation>프레임은 %1바이트이지만 %2 × %3 %4 이미지에는 %5바이트가 필요합니다.</translation>
    </message>
    <message>
        <source>%1 needs an even width and height; the frame is %2 × %3.</source>
        <translation>%1에는 짝수 너비와 높이가 필요합니다. 프레임은 %2 × %3입니다.</translation>
    </message>
    <message>
        <source>%1 needs an even width; the frame is %2 × %3.</source>
        <translation>%1에는 짝수 너비가 필요합니다. 프레임은 %2 × %3입니다.</translation>
    </message>
    <message>
        <source>There is no memory for an image of %1 × %2.</source>
        <translation>%1 × %2 이미지를 위한 메모리가 없습니다.</translation>
    </message>
    <message>
        <source>The conversion of %1 failed.</source>
        <translation>%1 변환에 실패했습니다.</translation>
    </message>
</context>
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
    <name>VantoViewer::HistogramPanel</name>
    <message>
        <source>Logarithmic</source>
        <translation>로그</translation>
    </message>
    <message>
        <source>Counts on a logarithmic scale, so that rare values show</source>
        <translation>드문 값도 보이도록 빈도를 로그 눈금으로 표시합니다</translation>
    </message>
    <message>
        <source>%1: min %2, max %3, mean %4</source>
        <translation>%1: 최소 %2, 최대 %3, 평균 %4</translation>
    </message>
    <message>
        <source>No image</source>
        <translation>이미지 없음</translation>
    </message>
</context>
<context>
    <name>VantoViewer::ImagePanel</name>
    <message>
        <source>Save Image...</source>
        <translation>이미지 저장...</translation>
    </message>
    <message>
        <source>Fit</source>
        <translation>맞춤</translation>
    </message>
    <message>
        <source>100 %</source>
        <translation>원본 크기 (100 %)</translation>
    </message>
    <message>
        <source>Acquisition</source>
        <translation>획득</translation>
    </message>
    <message>
        <source>Shows the whole image</source>
        <translation>이미지 전체를 표시합니다</translation>
    </message>
    <message>
        <source>Shows one screen pixel per image pixel</source>
        <translation>이미지 픽셀 하나를 화면 픽셀 하나로 표시합니다</translation>
    </message>
    <message>
        <source>Writes the image shown as PNG, TIFF or raw bytes</source>
        <translation>표시 중인 이미지를 PNG, TIFF 또는 원시 바이트로 저장합니다</translation>
    </message>
    <message>
        <source>The acquisition failed: %1</source>
        <translation>획득에 실패했습니다: %1</translation>
    </message>
    <message>
        <source>No camera is open. Open one in the Devices pane or the Camera menu.</source>
        <translation>열린 카메라가 없습니다. 장치 창이나 카메라 메뉴에서 여십시오.</translation>
    </message>
    <message>
        <source>This camera has no stream to show.</source>
        <translation>이 카메라에는 표시할 스트림이 없습니다.</translation>
    </message>
    <message>
        <source>Press Continuous Shot (%1) or Single Shot (%2) to see the camera&apos;s image.</source>
        <translation>카메라 이미지를 보려면 연속 촬영 (%1) 또는 단일 촬영 (%2)을 누르십시오.</translation>
    </message>
    <message>
        <source>%1, %2 × %3 pixels</source>
        <translation>%1, %2 × %3 픽셀</translation>
    </message>
    <message>
        <source>x %1, y %2: %3</source>
        <translation>픽셀 x %1, y %2: %3</translation>
    </message>
    <message>
        <source>There is no image to save.</source>
        <translation>저장할 이미지가 없습니다.</translation>
    </message>
    <message>
        <source>PNG image (*.png)</source>
        <translation>PNG 이미지 (*.png)</translation>
    </message>
    <message>
        <source>TIFF image (*.tif *.tiff)</source>
        <translation>TIFF 이미지 (*.tif *.tiff)</translation>
    </message>
    <message>
        <source>Raw bytes with a side file (*.raw)</source>
        <translation>원시 바이트와 설명 파일 (*.raw)</translation>
    </message>
    <message>
        <source>Save Image</source>
        <translation>이미지 저장</translation>
    </message>
    <message>
        <source>Cannot save %1: %2</source>
        <translation>%1을(를) 저장할 수 없습니다: %2</translation>
    </message>
    <message>
        <source>%1 fps received, %2 displayed, %3 MB/s</source>
        <translation>수신 %1 fps, 표시 %2 fps, %3 MB/s</translation>
    </message>
    <message>
        <source>incomplete %1, dropped for display %2</source>
        <translation>불완전 %1, 표시에서 버림 %2</translation>
    </message>
</context>
<context>
    <name>VantoViewer::ImageWriter</name>
    <message>
        <source>Unknown image file format %1.</source>
        <translation>알 수 없는 이미지 파일 형식 %1입니다.</translation>
    </message>
    <message>
        <source>Cannot write %1: %2</source>
        <translation>%1에 쓸 수 없습니다: %2</translation>
    </message>
    <message>
        <source>The frame holds no bytes.</source>
        <translation>프레임에 데이터가 없습니다.</translation>
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
    <message>
        <source>Open Simulated Camera from GenICam File...</source>
        <translation>GenICam 파일에서 시뮬레이션 카메라 열기...</translation>
    </message>
    <message>
        <source>Changes</source>
        <translation>변경 내역</translation>
    </message>
    <message>
        <source>Histogram</source>
        <translation>히스토그램</translation>
    </message>
    <message>
        <source>&amp;Acquisition</source>
        <translation>획득(&amp;A)</translation>
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
    <message>
        <source>&amp;Edit</source>
        <translation>편집(&amp;E)</translation>
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
    <name>VantoViewer::PixelReader</name>
    <message>
        <source>%1 (%2-bit)</source>
        <translation>%1 (%2비트)</translation>
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
