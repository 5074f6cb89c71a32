10 ' CLS 1 takes the text, CLS 2 the page that is drawn on, any other value nothing.
20 SCREEN 3:CLS 3:LINE(0,0)-(300,300),2,BF:PRINT "gone":CLS:PRINT "here"
30 SCREEN ,,1,17:LINE(0,0)-(200,200),4,BF:SCREEN ,,0:CLS 2:CLS 0:CLS 4:SCREEN ,,1
40 LINE STEP(30,20)-STEP(300,100),6,B
