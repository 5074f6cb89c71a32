10 ' The eight digital colours, some of them changed.
20 SCREEN 3:CLS 3
30 FOR I=0 TO 15:LINE(I*40,100)-(I*40+39,299),I,BF:NEXT I
40 COLOR=(1,6):COLOR=(6,1):COLOR=(0,4):COLOR=(7,0)
