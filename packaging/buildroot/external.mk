include $(sort $(wildcard $(BR2_EXTERNAL_PARAMGEN_PATH)/package/*/*.mk))
