10 ' With no page shown the text stands on black.
20 SCREEN 3:CLS 3:LINE(0,0)-(639,399),2,BF:SCREEN ,,,0:LINE(0,0)-(100,100),4,BF:PRINT "Text"
