10 PRINT LEN("あ");KLEN("あ");LEN("ｱ");KLEN("ｱ");LEN("");KLEN("")
