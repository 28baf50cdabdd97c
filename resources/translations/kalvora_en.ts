<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="en" sourcelanguage="en">
<context>
  <name>Kalvora</name>
  <message>
    <source>Show in Finder</source>
    <translation>Show in File Manager</translation>
  </message>
  <message>
    <source>You seem to be enjoying using Kalvora! If you like Kalvora, please, rate it on the AppStore.</source>
    <translation>You seem to be enjoying using Kalvora! If you like Kalvora, please rate it in the software center.</translation>
  </message>
  <message>
    <source>Include stereo track aside surround track when possible</source>
    <translation>Include stereo track beside surround track when possible</translation>
  </message>
</context>
</TS>
