<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="ko_KR" sourcelanguage="en_US">
<context>
    <name>ComboSlider</name>
    <message>
        <source>Range: %1..%2</source>
        <translation>범위: %1..%2</translation>
    </message>
    <message>
        <source>Range: %1..%2 (Increment: %3)</source>
        <translation>범위: %1..%2 (증분: %3)</translation>
    </message>
</context>
<context>
    <name>DoubleSpinBox</name>
    <message>
        <source>Range: %1..%2 (Increment: %3)</source>
        <translation>범위: %1..%2 (증분: %3)</translation>
    </message>
    <message>
        <source>Range: %1..%2</source>
        <translation>범위: %1..%2</translation>
    </message>
</context>
<context>
    <name>EditNotice</name>
    <message>
        <source>%1: %2 is above the maximum %3, wrote %4</source>
        <translation>%1: %2은(는) 최대값 %3보다 큽니다. %4을(를) 기록했습니다</translation>
    </message>
    <message>
        <source>%1: %2 is below the minimum %3, wrote %4</source>
        <translation>%1: %2은(는) 최소값 %3보다 작습니다. %4을(를) 기록했습니다</translation>
    </message>
    <message>
        <source>%1: %2 is not on the increment %3, wrote %4</source>
        <translation>%1: %2은(는) 증분 %3에 맞지 않습니다. %4을(를) 기록했습니다</translation>
    </message>
    <message>
        <source>%1: %2 was rounded, wrote %3</source>
        <translation>%1: %2이(가) 반올림되었습니다. %3을(를) 기록했습니다</translation>
    </message>
    <message>
        <source>%1: &quot;%2&quot; is not a number, the value stays %3</source>
        <translation>%1: &quot;%2&quot;은(는) 숫자가 아닙니다. 값은 %3(으)로 유지됩니다</translation>
    </message>
    <message>
        <source>%1: %2 is above the maximum %3, the value stays %4</source>
        <translation>%1: %2은(는) 최대값 %3보다 큽니다. 값은 %4(으)로 유지됩니다</translation>
    </message>
    <message>
        <source>%1: %2 is below the minimum %3, the value stays %4</source>
        <translation>%1: %2은(는) 최소값 %3보다 작습니다. 값은 %4(으)로 유지됩니다</translation>
    </message>
    <message>
        <source>%1: &quot;%2&quot; is not a MAC address, the value stays %3</source>
        <translation>%1: &quot;%2&quot;은(는) MAC 주소가 아닙니다. 값은 %3(으)로 유지됩니다</translation>
    </message>
    <message>
        <source>%1: &quot;%2&quot; is not an IPv4 address, the value stays %3</source>
        <translation>%1: &quot;%2&quot;은(는) IPv4 주소가 아닙니다. 값은 %3(으)로 유지됩니다</translation>
    </message>
    <message>
        <source>%1: %2</source>
        <translation>%1: %2</translation>
    </message>
    <message>
        <source>%1: the value could not be written</source>
        <translation>%1: 값을 기록할 수 없습니다</translation>
    </message>
    <message>
        <source>%1: the camera is lost, nothing was written</source>
        <translation>%1: 카메라 연결이 끊어져 아무것도 기록되지 않았습니다</translation>
    </message>
    <message>
        <source>Minimum %1, maximum %2, increment %3</source>
        <translation>최소값 %1, 최대값 %2, 증분 %3</translation>
    </message>
    <message>
        <source>Minimum %1, maximum %2, no increment</source>
        <translation>최소값 %1, 최대값 %2, 증분 없음</translation>
    </message>
    <message>
        <source>Unit: %1</source>
        <translation>단위: %1</translation>
    </message>
</context>
<context>
    <name>EditTabName</name>
    <message>
        <source>Enter a name for tab %1</source>
        <translation>탭 %1의 이름 입력</translation>
    </message>
    <message>
        <source>Remove this tab</source>
        <translation>이 탭 삭제</translation>
    </message>
</context>
<context>
    <name>Feature</name>
    <message>
        <source>Remove %1</source>
        <translation>%1 제거</translation>
    </message>
</context>
<context>
    <name>FeatureDumper</name>
    <message>
        <source>[contents left out: listed in full %1 times above]</source>
        <translation>[내용 생략: 위에 %1번 전체 표시됨]</translation>
    </message>
    <message>
        <source>[the list ends here: the rest would make the text longer than %1 characters]</source>
        <translation>[목록은 여기서 끝납니다: 나머지를 포함하면 %1자를 넘습니다]</translation>
    </message>
</context>
<context>
    <name>FeatureTreeINodeItem</name>
    <message>
        <source>Integer</source>
        <translation>정수</translation>
    </message>
    <message>
        <source>Boolean</source>
        <translation>부울</translation>
    </message>
    <message>
        <source>Float</source>
        <translation>부동 소수점</translation>
    </message>
    <message>
        <source>Command</source>
        <translation>명령</translation>
    </message>
    <message>
        <source>String</source>
        <translation>문자열</translation>
    </message>
    <message>
        <source>Enumeration</source>
        <translation>열거형</translation>
    </message>
    <message>
        <source>Category</source>
        <translation>카테고리</translation>
    </message>
    <message>
        <source>Unknown</source>
        <translation>알 수 없음</translation>
    </message>
    <message>
        <source>&lt;not implemented&gt;</source>
        <translation>&lt;구현되지 않음&gt;</translation>
    </message>
    <message>
        <source>&lt;not readable&gt;</source>
        <translation>&lt;읽을 수 없음&gt;</translation>
    </message>
    <message>
        <source>&lt;not available&gt;</source>
        <translation>&lt;사용할 수 없음&gt;</translation>
    </message>
    <message>
        <source>%1, access %2, visibility %3</source>
        <translation>%1, 액세스 %2, 표시 수준 %3</translation>
    </message>
    <message>
        <source>Locked while the camera is in this state</source>
        <translation>카메라가 이 상태인 동안 잠겨 있습니다</translation>
    </message>
    <message>
        <source>Register</source>
        <translation>레지스터</translation>
    </message>
    <message>
        <source>The camera is lost: this is the last value read from it.</source>
        <translation>카메라 연결이 끊어졌습니다. 마지막으로 읽은 값입니다.</translation>
    </message>
    <message>
        <source>Could not be read: %1</source>
        <translation>읽을 수 없습니다: %1</translation>
    </message>
    <message>
        <source>The camera is lost.</source>
        <translation>카메라 연결이 끊어졌습니다.</translation>
    </message>
</context>
<context>
    <name>FeatureTreeModel</name>
    <message>
        <source>Category</source>
        <translation>카테고리</translation>
    </message>
    <message>
        <source>Value</source>
        <translation>값</translation>
    </message>
</context>
<context>
    <name>FeatureTreeView</name>
    <message>
        <source>No parameters match favorite selection.</source>
        <translation>즐겨찾기 선택과 일치하는 파라미터가 없습니다.</translation>
    </message>
</context>
<context>
    <name>FeatureTreeWidget</name>
    <message>
        <source>Polling</source>
        <translation>폴링</translation>
    </message>
    <message>
        <source>Move Up</source>
        <translation>위로 이동</translation>
    </message>
    <message>
        <source>Move Down</source>
        <translation>아래로 이동</translation>
    </message>
    <message>
        <source>Common Tasks</source>
        <translation>일반 작업</translation>
    </message>
    <message>
        <source>%1 from parameter collection %2</source>
        <translation>파라미터 컬렉션 %2의 %1</translation>
    </message>
    <message>
        <source>the camera is lost</source>
        <translation>카메라 연결이 끊어졌습니다</translation>
    </message>
    <message>
        <source>%1: %2</source>
        <translation>%1: %2</translation>
    </message>
</context>
<context>
    <name>FeatureTreeWidgetClass</name>
    <message>
        <source>FeatureTreeWidget</source>
        <translation>FeatureTreeWidget</translation>
    </message>
    <message>
        <source>Search for parameters</source>
        <translation>파라미터 검색</translation>
    </message>
    <message>
        <source>Edit Feature Tabs</source>
        <translation>기능 탭 편집</translation>
    </message>
    <message>
        <source>P&amp;olling</source>
        <translation>폴링(&amp;O)</translation>
    </message>
    <message>
        <source>Show Unavailable Features</source>
        <translation>사용할 수 없는 기능 표시</translation>
    </message>
    <message>
        <source>Refresh</source>
        <translation>새로 고침</translation>
    </message>
    <message>
        <source>Refreshes the  feature tree</source>
        <translation>기능 트리를 새로 고칩니다</translation>
    </message>
    <message>
        <source>F5</source>
        <translation>F5</translation>
    </message>
</context>
<context>
    <name>FloatEditor</name>
    <message>
        <source>&lt;not readable&gt;</source>
        <translation>&lt;읽을 수 없음&gt;</translation>
    </message>
</context>
<context>
    <name>IntEditor</name>
    <message>
        <source>&lt;not readable&gt;</source>
        <translation>&lt;읽을 수 없음&gt;</translation>
    </message>
    <message>
        <source>Range: 0x%1..0x%2</source>
        <translation>범위: 0x%1..0x%2</translation>
    </message>
    <message>
        <source>Range: %1..%2</source>
        <translation>범위: %1..%2</translation>
    </message>
    <message>
        <source>Increment: %1</source>
        <translation>증분: %1</translation>
    </message>
</context>
<context>
    <name>NodeMapFilterFile</name>
    <message>
        <source>elements nested deeper than %1 levels</source>
        <translation>요소가 %1단계보다 깊게 중첩되어 있습니다</translation>
    </message>
    <message>
        <source>The filter file %1 was not used: line %2, column %3: %4</source>
        <translation>필터 파일 %1을(를) 사용하지 않았습니다: %2행 %3열: %4</translation>
    </message>
</context>
<context>
    <name>Plugin::Nodescope::CFeatureTreeWidget</name>
    <message>
        <source>&lt;i&gt;Select any open camera in the Devices pane to display its features.&lt;/i&gt;</source>
        <translation>&lt;i&gt;기능을 표시하려면 장치 창에서 열려 있는 카메라를 선택하십시오.&lt;/i&gt;</translation>
    </message>
    <message>
        <source>Copy Camera Features</source>
        <translation>카메라 기능 복사</translation>
    </message>
    <message>
        <source>Copies the features of the camera and their values as text</source>
        <translation>카메라의 기능과 그 값을 텍스트로 복사합니다</translation>
    </message>
    <message>
        <source>Host Transport Layer</source>
        <translation>호스트 전송 계층</translation>
    </message>
    <message>
        <source>Stream Parameters</source>
        <translation>스트림 매개변수</translation>
    </message>
    <message>
        <source>Event Grabber Parameters</source>
        <translation>이벤트 그래버 매개변수</translation>
    </message>
    <message>
        <source>Image Format Conversion</source>
        <translation>이미지 형식 변환</translation>
    </message>
    <message>
        <source>My tab</source>
        <translation>내 탭</translation>
    </message>
    <message>
        <source>Edit Feature Tabs...</source>
        <translation>기능 탭 편집...</translation>
    </message>
</context>
<context>
    <name>Plugin::Nodescope::CFeatureTreeWidgetFactory</name>
    <message>
        <source>All</source>
        <translation>전체</translation>
    </message>
    <message>
        <source>Basic</source>
        <translation>기본</translation>
    </message>
    <message>
        <source>Features</source>
        <translation>기능</translation>
    </message>
</context>
<context>
    <name>Plugin::Nodescope::Internal::Model::CFeatureTableModel</name>
    <message>
        <source>Feature</source>
        <translation>기능</translation>
    </message>
    <message>
        <source>Value</source>
        <translation>값</translation>
    </message>
</context>
<context>
    <name>Plugin::Nodescope::Internal::View::CUseCaseEdit</name>
    <message>
        <source>End the use case</source>
        <translation>사용 사례 종료</translation>
    </message>
</context>
<context>
    <name>SearchEdit</name>
    <message>
        <source>Clear</source>
        <translation>지우기</translation>
    </message>
</context>
<context>
    <name>ToolButtonEditor</name>
    <message>
        <source>Execute</source>
        <translation>실행</translation>
    </message>
</context>
<context>
    <name>ValueFormat</name>
    <message>
        <source>Images: %1; Errors: %2</source>
        <translation>이미지: %1; 오류: %2</translation>
    </message>
</context>
<context>
    <name>featuretreeoptionmenu</name>
    <message>
        <source>Edit Feature Tabs</source>
        <translation>기능 탭 편집</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>닫기</translation>
    </message>
    <message>
        <source>Feature tabs</source>
        <translation>기능 탭</translation>
    </message>
    <message>
        <source>Features of &quot;%1&quot;</source>
        <translation>&quot;%1&quot;의 기능</translation>
    </message>
    <message>
        <source>Features</source>
        <translation>기능</translation>
    </message>
    <message>
        <source>Add features by drag and drop</source>
        <translation>끌어서 놓기로 기능 추가</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>확인</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>취소</translation>
    </message>
</context>
</TS>
