// Sizes that the whole design agrees on.
`ifndef SOC_CONFIG_VH
`define SOC_CONFIG_VH
`define GPIO_CHANNELS 4
`define PWM_CHANNELS  2
`endif
