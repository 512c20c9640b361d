<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="en_US">
<context>
    <name>TestContext</name>
    <message>
        <source>Features</source>
        <translation type="unfinished"></translation>
    </message>
</context>
</TS>
