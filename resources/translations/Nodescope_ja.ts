<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="ja_JP" sourcelanguage="en_US">
<context>
    <name>ComboSlider</name>
    <message>
        <source>Range: %1..%2</source>
        <translation>範囲: %1..%2</translation>
    </message>
    <message>
        <source>Range: %1..%2 (Increment: %3)</source>
        <translation>範囲: %1..%2 (増分: %3)</translation>
    </message>
</context>
<context>
    <name>DoubleSpinBox</name>
    <message>
        <source>Range: %1..%2 (Increment: %3)</source>
        <translation>範囲: %1..%2 (増分: %3)</translation>
    </message>
    <message>
        <source>Range: %1..%2</source>
        <translation>範囲: %1..%2</translation>
    </message>
</context>
<context>
    <name>EditNotice</name>
    <message>
        <source>%1: %2 is above the maximum %3, wrote %4</source>
        <translation>%1: %2 は最大値 %3 を超えています。%4 を書き込みました</translation>
    </message>
    <message>
        <source>%1: %2 is below the minimum %3, wrote %4</source>
        <translation>%1: %2 は最小値 %3 未満です。%4 を書き込みました</translation>
    </message>
    <message>
        <source>%1: %2 is not on the increment %3, wrote %4</source>
        <translation>%1: %2 は増分 %3 に合っていません。%4 を書き込みました</translation>
    </message>
    <message>
        <source>%1: %2 was rounded, wrote %3</source>
        <translation>%1: %2 は丸められました。%3 を書き込みました</translation>
    </message>
    <message>
        <source>%1: &quot;%2&quot; is not a number, the value stays %3</source>
        <translation>%1: 「%2」は数値ではありません。値は %3 のままです</translation>
    </message>
    <message>
        <source>%1: %2 is above the maximum %3, the value stays %4</source>
        <translation>%1: %2 は最大値 %3 を超えています。値は %4 のままです</translation>
    </message>
    <message>
        <source>%1: %2 is below the minimum %3, the value stays %4</source>
        <translation>%1: %2 は最小値 %3 未満です。値は %4 のままです</translation>
    </message>
    <message>
        <source>%1: &quot;%2&quot; is not a MAC address, the value stays %3</source>
        <translation>%1: 「%2」は MAC アドレスではありません。値は %3 のままです</translation>
    </message>
    <message>
        <source>%1: &quot;%2&quot; is not an IPv4 address, the value stays %3</source>
        <translation>%1: 「%2」は IPv4 アドレスではありません。値は %3 のままです</translation>
    </message>
    <message>
        <source>%1: %2</source>
        <translation>%1: %2</translation>
    </message>
    <message>
        <source>%1: the value could not be written</source>
        <translation>%1: 値を書き込めませんでした</translation>
    </message>
    <message>
        <source>%1: the camera is lost, nothing was written</source>
        <translation>%1: カメラとの接続が失われたため、何も書き込まれませんでした</translation>
    </message>
    <message>
        <source>Minimum %1, maximum %2, increment %3</source>
        <translation>最小値 %1、最大値 %2、増分 %3</translation>
    </message>
    <message>
        <source>Minimum %1, maximum %2, no increment</source>
        <translation>最小値 %1、最大値 %2、増分なし</translation>
    </message>
    <message>
        <source>Unit: %1</source>
        <translation>単位: %1</translation>
    </message>
</context>
<context>
    <name>EditTabName</name>
    <message>
        <source>Enter a name for tab %1</source>
        <translation>タブ %1 の名前を入力</translation>
    </message>
    <message>
        <source>Remove this tab</source>
        <translation>このタブを削除</translation>
    </message>
</context>
<context>
    <name>Feature</name>
    <message>
        <source>Remove %1</source>
        <translation>%1 を削除</translation>
    </message>
</context>
<context>
    <name>FeatureDumper</name>
    <message>
        <source>[contents left out: listed in full %1 times above]</source>
        <translation>[内容は省略: 上に %1 回すべて記載済み]</translation>
    </message>
    <message>
        <source>[the list ends here: the rest would make the text longer than %1 characters]</source>
        <translation>[一覧はここで終わります: 残りを含めると %1 文字を超えます]</translation>
    </message>
</context>
<context>
    <name>FeatureTreeINodeItem</name>
    <message>
        <source>Integer</source>
        <translation>整数</translation>
    </message>
    <message>
        <source>Boolean</source>
        <translation>ブール</translation>
    </message>
    <message>
        <source>Float</source>
        <translation>浮動小数点</translation>
    </message>
    <message>
        <source>Command</source>
        <translation>コマンド</translation>
    </message>
    <message>
        <source>String</source>
        <translation>文字列</translation>
    </message>
    <message>
        <source>Enumeration</source>
        <translation>列挙</translation>
    </message>
    <message>
        <source>Category</source>
        <translation>カテゴリ</translation>
    </message>
    <message>
        <source>Unknown</source>
        <translation>不明</translation>
    </message>
    <message>
        <source>&lt;not implemented&gt;</source>
        <translation>&lt;未実装&gt;</translation>
    </message>
    <message>
        <source>&lt;not readable&gt;</source>
        <translation>&lt;読み取り不可&gt;</translation>
    </message>
    <message>
        <source>&lt;not available&gt;</source>
        <translation>&lt;使用不可&gt;</translation>
    </message>
    <message>
        <source>%1, access %2, visibility %3</source>
        <translation>%1、アクセス %2、表示レベル %3</translation>
    </message>
    <message>
        <source>Locked while the camera is in this state</source>
        <translation>カメラがこの状態の間はロックされています</translation>
    </message>
    <message>
        <source>Register</source>
        <translation>レジスタ</translation>
    </message>
    <message>
        <source>The camera is lost: this is the last value read from it.</source>
        <translation>カメラとの接続が失われました。これは最後に読み取った値です。</translation>
    </message>
    <message>
        <source>Could not be read: %1</source>
        <translation>読み取れませんでした: %1</translation>
    </message>
    <message>
        <source>The camera is lost.</source>
        <translation>カメラとの接続が失われました。</translation>
    </message>
</context>
<context>
    <name>FeatureTreeModel</name>
    <message>
        <source>Category</source>
        <translation>カテゴリ</translation>
    </message>
    <message>
        <source>Value</source>
        <translation>値</translation>
    </message>
</context>
<context>
    <name>FeatureTreeView</name>
    <message>
        <source>No parameters match favorite selection.</source>
        <translation>お気に入りの選択に一致するパラメータはありません。</translation>
    </message>
</context>
<context>
    <name>FeatureTreeWidget</name>
    <message>
        <source>Polling</source>
        <translation>ポーリング</translation>
    </message>
    <message>
        <source>Move Up</source>
        <translation>上へ移動</translation>
    </message>
    <message>
        <source>Move Down</source>
        <translation>下へ移動</translation>
    </message>
    <message>
        <source>Common Tasks</source>
        <translation>一般的なタスク</translation>
    </message>
    <message>
        <source>%1 from parameter collection %2</source>
        <translation>パラメータコレクション %2 の %1</translation>
    </message>
    <message>
        <source>the camera is lost</source>
        <translation>カメラとの接続が失われました</translation>
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
        <translation>パラメータを検索</translation>
    </message>
    <message>
        <source>Edit Feature Tabs</source>
        <translation>機能タブの編集</translation>
    </message>
    <message>
        <source>P&amp;olling</source>
        <translation>ポーリング(&amp;O)</translation>
    </message>
    <message>
        <source>Show Unavailable Features</source>
        <translation>使用できない機能を表示</translation>
    </message>
    <message>
        <source>Refresh</source>
        <translation>更新</translation>
    </message>
    <message>
        <source>Refreshes the  feature tree</source>
        <translation>機能ツリーを更新します</translation>
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
        <translation>&lt;読み取り不可&gt;</translation>
    </message>
</context>
<context>
    <name>IntEditor</name>
    <message>
        <source>&lt;not readable&gt;</source>
        <translation>&lt;読み取り不可&gt;</translation>
    </message>
    <message>
        <source>Range: 0x%1..0x%2</source>
        <translation>範囲: 0x%1..0x%2</translation>
    </message>
    <message>
        <source>Range: %1..%2</source>
        <translation>範囲: %1..%2</translation>
    </message>
    <message>
        <source>Increment: %1</source>
        <translation>増分: %1</translation>
    </message>
</context>
<context>
    <name>NodeMapFilterFile</name>
    <message>
        <source>elements nested deeper than %1 levels</source>
        <translation>要素の入れ子が %1 階層を超えています</translation>
    </message>
    <message>
        <source>The filter file %1 was not used: line %2, column %3: %4</source>
        <translation>フィルターファイル %1 は使用されませんでした: %2 行 %3 列: %4</translation>
    </message>
</context>
<context>
    <name>Plugin::Nodescope::CFeatureTreeWidget</name>
    <message>
        <source>&lt;i&gt;Select any open camera in the Devices pane to display its features.&lt;/i&gt;</source>
        <translation>&lt;i&gt;機能を表示するには、デバイス ペインで開いているカメラを選択してください。&lt;/i&gt;</translation>
    </message>
    <message>
        <source>Copy Camera Features</source>
        <translation>カメラ機能をコピー</translation>
    </message>
    <message>
        <source>Copies the features of the camera and their values as text</source>
        <translation>カメラの機能とその値をテキストとしてコピーします</translation>
    </message>
    <message>
        <source>Host Transport Layer</source>
        <translation>ホスト トランスポート レイヤー</translation>
    </message>
    <message>
        <source>Stream Parameters</source>
        <translation>ストリーム パラメーター</translation>
    </message>
    <message>
        <source>Event Grabber Parameters</source>
        <translation>イベント グラバー パラメーター</translation>
    </message>
    <message>
        <source>Image Format Conversion</source>
        <translation>画像フォーマット変換</translation>
    </message>
    <message>
        <source>My tab</source>
        <translation>マイ タブ</translation>
    </message>
    <message>
        <source>Edit Feature Tabs...</source>
        <translation>機能タブの編集...</translation>
    </message>
</context>
<context>
    <name>Plugin::Nodescope::CFeatureTreeWidgetFactory</name>
    <message>
        <source>All</source>
        <translation>すべて</translation>
    </message>
    <message>
        <source>Basic</source>
        <translation>基本</translation>
    </message>
    <message>
        <source>Features</source>
        <translation>機能</translation>
    </message>
</context>
<context>
    <name>Plugin::Nodescope::Internal::Model::CFeatureTableModel</name>
    <message>
        <source>Feature</source>
        <translation>機能</translation>
    </message>
    <message>
        <source>Value</source>
        <translation>値</translation>
    </message>
</context>
<context>
    <name>Plugin::Nodescope::Internal::View::CUseCaseEdit</name>
    <message>
        <source>End the use case</source>
        <translation>ユースケースを終了</translation>
    </message>
</context>
<context>
    <name>SearchEdit</name>
    <message>
        <source>Clear</source>
        <translation>クリア</translation>
    </message>
</context>
<context>
    <name>ToolButtonEditor</name>
    <message>
        <source>Execute</source>
        <translation>実行</translation>
    </message>
</context>
<context>
    <name>ValueFormat</name>
    <message>
        <source>Images: %1; Errors: %2</source>
        <translation>画像: %1; エラー: %2</translation>
    </message>
</context>
<context>
    <name>featuretreeoptionmenu</name>
    <message>
        <source>Edit Feature Tabs</source>
        <translation>機能タブの編集</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>閉じる</translation>
    </message>
    <message>
        <source>Feature tabs</source>
        <translation>機能タブ</translation>
    </message>
    <message>
        <source>Features of &quot;%1&quot;</source>
        <translation>「%1」の機能</translation>
    </message>
    <message>
        <source>Features</source>
        <translation>機能</translation>
    </message>
    <message>
        <source>Add features by drag and drop</source>
        <translation>ドラッグ＆ドロップで機能を追加</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>OK</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>キャンセル</translation>
    </message>
</context>
</TS>
