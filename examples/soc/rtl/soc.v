// A small system-on-chip without a processor: a host reads and writes its registers over a serial line.
//
//   0x0000  RAM, 256 bytes          0x4000  PWM, a duty a channel
//   0x1000  UART status             0x5000  CRC-8 of the bytes written
//   0x2000  timer                   0x6000  bus monitor
//   0x3000  GPIO
`include "soc_config.vh"

module soc #(
    parameter CLOCK_HZ = 50_000_000,
    parameter BAUD     = 115_200
) (
    input  wire                      clk,
    input  wire                      rst_n,
    input  wire                      uart_rx,
    output wire                      uart_tx,
    inout  wire [`GPIO_CHANNELS-1:0] gpio,
    output wire [`PWM_CHANNELS-1:0]  pwm,
    output reg  [0:3]                led
);

    localparam SLAVES = 7;

    // Reset: asserted at once, released in step with the clock.
    reg [1:0] reset_sync;
    wire      rst = ~reset_sync[1];

    always @(posedge clk or negedge rst_n)
        if (!rst_n)
            reset_sync <= 2'b00;
        else
            reset_sync <= {reset_sync[0], 1'b1};

    // Serial line.
    wire [7:0] rx_data, tx_data;
    wire       rx_valid, rx_ready, tx_valid, tx_ready;

    // Bus: the bridge holds its request until it is acknowledged.
    wire        bus_request, bus_write, bus_ack;
    wire [15:0] bus_address;
    wire [7:0]  bus_wdata, bus_rdata;

    wire [SLAVES-1:0]   slave_select, slave_ack;
    wire [8*SLAVES-1:0] slave_rdata;
    wire                decode_error, timer_irq, gpio_irq;

    uart #(.DIVISOR(CLOCK_HZ / BAUD)) u_uart (
        .clk(clk), .rst(rst), .rx(uart_rx), .tx(uart_tx),
        .rx_data(rx_data), .rx_valid(rx_valid), .rx_ready(rx_ready),
        .tx_data(tx_data), .tx_valid(tx_valid), .tx_ready(tx_ready),
        .select(slave_select[1]), .address(bus_address[1:0]),
        .rdata(slave_rdata[15:8]), .ack(slave_ack[1]));

    bus_bridge u_bridge (
        .clk(clk), .rst(rst),
        .rx_data(rx_data), .rx_valid(rx_valid), .rx_ready(rx_ready),
        .tx_data(tx_data), .tx_valid(tx_valid), .tx_ready(tx_ready),
        .bus_request(bus_request), .bus_write(bus_write), .bus_address(bus_address),
        .bus_wdata(bus_wdata), .bus_rdata(bus_rdata), .bus_ack(bus_ack));

    bus_fabric #(.SLAVES(SLAVES)) u_fabric (
        .clk(clk), .rst(rst),
        .request(bus_request), .address(bus_address), .rdata(bus_rdata), .ack(bus_ack),
        .decode_error(decode_error),
        .slave_select(slave_select), .slave_ack(slave_ack), .slave_rdata(slave_rdata));

    ram #(.ADDRESS_BITS(8)) u_ram (
        .clk(clk), .rst(rst), .select(slave_select[0]), .write(bus_write),
        .address(bus_address[7:0]), .wdata(bus_wdata), .rdata(slave_rdata[7:0]), .ack(slave_ack[0]));

    timer #(.PRESCALE_BITS(4)) u_timer (
        .clk(clk), .rst(rst), .select(slave_select[2]), .write(bus_write),
        .address(bus_address[2:0]), .wdata(bus_wdata), .rdata(slave_rdata[23:16]), .ack(slave_ack[2]),
        .irq(timer_irq));

    gpio_bank #(.CHANNELS(`GPIO_CHANNELS)) u_gpio (
        .clk(clk), .rst(rst), .select(slave_select[3]), .write(bus_write),
        .address(bus_address[1:0]), .wdata(bus_wdata), .rdata(slave_rdata[31:24]), .ack(slave_ack[3]),
        .pads(gpio), .irq(gpio_irq));

    pwm_bank #(.CHANNELS(`PWM_CHANNELS)) u_pwm (
        .clk(clk), .rst(rst), .select(slave_select[4]), .write(bus_write),
        .address(bus_address[1:0]), .wdata(bus_wdata), .rdata(slave_rdata[39:32]), .ack(slave_ack[4]),
        .pwm(pwm));

    crc_unit u_crc (
        .clk(clk), .rst(rst), .select(slave_select[5]), .write(bus_write),
        .address(bus_address[0]), .wdata(bus_wdata), .rdata(slave_rdata[47:40]), .ack(slave_ack[5]));

    bus_monitor u_monitor (
        .clk(clk), .rst(rst), .bus_request(bus_request), .bus_write(bus_write), .bus_ack(bus_ack),
        .bus_address(bus_address), .bus_wdata(bus_wdata),
        .select(slave_select[6]), .rdata(slave_rdata[55:48]), .ack(slave_ack[6]));

    always @(posedge clk)
        if (rst)
            led <= 4'b0000;
        else
            led <= {bus_request, timer_irq, gpio_irq, decode_error};

endmodule
