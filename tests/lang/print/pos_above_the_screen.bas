10 ' The cursor may go above the screen; its column stays one of the screen's.
20 LOCATE 3,0:PRINT CHR$(30);:A=POS(0):B=CSRLIN:CLS:PRINT A;B
