<?php
/*
Plugin Name: Brasslet
Description: As a site has it that was set up before the login travelled in the form.
Version: 0.0.9
*/
add_action( 'rest_api_init', function () {
	register_rest_route( 'brasslet/v1', '/status', array(
		'methods' => 'GET',
		'callback' => fn() => array( 'ok' => true, 'version' => '0.0.9' ),
		'permission_callback' => '__return_true',
	) );
} );
